#include "page/profile_bars.hpp"

#include <algorithm>
#include <set>

#include "model/profile.hpp"
#include "page/html.hpp"

namespace kovadm {
namespace {

using Paths = std::set<std::string>;

Paths failing_paths(const std::vector<WatchedReading>& readings) {
  Paths paths;
  for (const WatchedReading& reading : readings) {
    if (!reading.value) paths.insert(catalogue_path(reading.parameter.path));
  }
  return paths;
}

// What is not as the profile has it; empty where all is.
std::string lack(const Requirement& requirement, const Paths& failing) {
  if (requirement.row == nullptr) return "missing";
  if (failing.contains(requirement.path)) return "fault";
  if (!requirement.access_differs()) return "";
  const std::string reason = access_reason(requirement.path);
  return to_text(requirement.row->access) + ", required " + requirement.access + (reason.empty() ? "" : ": " + reason);
}

bool is_whole(const Profile& profile, const Paths& failing) {
  return profile.whole() && std::none_of(profile.requirements.begin(), profile.requirements.end(),
                                         [&](const auto& each) { return failing.contains(each.path); });
}

std::string bar(const Profile& profile, const Paths& failing) {
  std::string items;
  std::size_t answering = 0;
  for (const Requirement& requirement : profile.requirements) {
    const std::string lacking = lack(requirement, failing);
    if (requirement.row != nullptr && !failing.contains(requirement.path)) ++answering;
    if (!lacking.empty()) items += "<li>" + to_html(requirement.path) + " <span>" + to_html(lacking) + "</span>\n";
  }
  if (items.empty()) items = "<li><span>All that it asks for is served.</span>\n";
  const std::string count = std::to_string(answering);
  const std::string all = std::to_string(profile.requirements.size());
  return std::string(is_whole(profile, failing) ? "<details class=whole>" : "<details>") + "<summary><span>" +
         to_html(profile.name) + "</span><progress max=" + all + " value=" + count + " aria-label=\"" +
         to_html(profile.name) + "\"></progress><span class=of>" + count + " of " + all + "</span></summary><ul>\n" +
         items + "</ul></details>\n";
}

}  // namespace

std::string profile_bars(const std::vector<WatchedReading>& readings) {
  const Paths failing = failing_paths(readings);
  const std::vector<Profile>& all = profiles();
  std::string html = "<div class=models>\n";
  for (auto first = all.begin(); first != all.end();) {
    const auto last = std::find_if(first, all.end(), [&](const Profile& other) { return other.model != first->model; });
    const auto whole = std::count_if(first, last, [&](const Profile& profile) { return is_whole(profile, failing); });
    html += "<div class=model>\n<h2>" + to_html(first->model) + " <span>" + std::to_string(last - first) +
            " profiles, " + std::to_string(whole) + " whole</span></h2>\n";
    for (; first != last; ++first) html += bar(*first, failing);
    html += "</div>\n";
  }
  return html + "</div>\n";
}

}  // namespace kovadm
