#include "page/value_rows.hpp"

#include <algorithm>
#include <set>

#include "model/value_type.hpp"
#include "page/html.hpp"
#include "page/secret_words.hpp"
#include "page/sources.hpp"
#include "recording/pairs.hpp"

namespace kovadm {
namespace {

using Json = nlohmann::ordered_json;
using WatchedPair = Pair<WatchedReading>;

// Longer ones are shown in part until they are opened.
constexpr std::size_t kLong = 160;

std::string mark(const std::string& kind, const std::string& text, const std::string& reason = "") {
  const std::string title = reason.empty() ? "" : " title=\"" + to_html(reason) + '"';
  return "<span class=\"mark " + kind + '"' + title + ">" + to_html(text) + "</span>";
}

std::string absent(const std::string& text) { return "<span class=absent>" + text + "</span>"; }

std::string class_of(const std::set<std::string>& marks) {
  std::string classes;
  for (const std::string& each : marks) classes += (classes.empty() ? "" : " ") + each;
  return classes.empty() ? "" : " class=\"" + classes + '"';
}

std::string object_of(const std::string& path) { return path.substr(0, path.rfind('.') + 1); }
std::string name_of(const std::string& path) { return path.substr(path.rfind('.') + 1); }

// Narrow windows break it at its dots.
std::string breakable(const std::string& path) {
  std::string html;
  for (const char character : to_html(path)) {
    html += character;
    if (character == '.') html += "<wbr>";
  }
  return html;
}

// Of an object the rows stand together, wherever the catalogue has them.
std::vector<std::vector<WatchedPair>> by_object(const std::vector<WatchedPair>& pairs) {
  std::vector<std::vector<WatchedPair>> objects;
  std::map<std::string, std::size_t> places;
  for (const WatchedPair& pair : pairs) {
    const auto [place, added] = places.emplace(object_of(pair.parameter().path), objects.size());
    if (added) objects.emplace_back();
    objects[place->second].push_back(pair);
  }
  return objects;
}

class Table {
 public:
  Table(const std::vector<Side>& sides, Redaction& redaction) : compares_(sides.size() > 1) {
    words_.reserve(sides.size());
    for (const Side& side : sides) words_.emplace_back(side.readings, redaction);
    rows_.details = Json::array();
  }

  void object(const std::vector<WatchedPair>& pairs) {
    const std::string path = object_of(pairs.front().parameter().path);
    const std::string columns = compares_ ? "5" : "4";
    rows_.html += "<tbody>\n<tr class=g><th colspan=" + columns + " scope=rowgroup>" + breakable(path) + "</th></tr>\n";
    for (const WatchedPair& pair : pairs) row(pair);
    rows_.html += "</tbody>\n";
  }

  ValueRows take() { return std::move(rows_); }

 private:
  void row(const WatchedPair& pair) {
    const Parameter& parameter = pair.parameter();
    const Row& row = *parameter.row;
    std::set<std::string> marks;
    Json sources = Json::array({nullptr});
    std::string cells = cell(pair.a, words_.front(), marks, sources[0]);
    if (compares_) {
      sources.push_back(nullptr);
      cells += cell(pair.b, words_.back(), marks, sources[1]);
      if (pair.differs()) marks.insert(pair.moved() ? "moved" : "changed");
      if (sources[0] == sources[1]) sources[1] = nullptr;
    }
    ++rows_.count;
    for (const std::string& each : marks) ++rows_.marks[each];
    if (row.access == Access::READ_WRITE) marks.insert("writable");
    rows_.html += "<tr" + class_of(marks) + "><th scope=row>" + to_html(name_of(parameter.path)) + "</th>" + cells +
                  "<td class=t>" + to_text(row.type) + "<td class=a>" + to_text(row.access) + "</tr>\n";
    rows_.details.push_back({{"handler", row.handler},
                             {"defined", definition_of(row.handler)},
                             {"also", other_paths(parameter)},
                             {"sides", sources}});
  }

  static std::vector<std::string> other_paths(const Parameter& parameter) {
    std::vector<std::string> paths = parameter.row->paths;
    std::erase(paths, catalogue_path(parameter.path));
    return paths;
  }

  // Of one router; adds the marks, and tells the sources.
  static std::string cell(const WatchedReading* reading, const SecretWords& words, std::set<std::string>& marks,
                          Json& sources) {
    sources = Json::array();
    if (reading == nullptr) return "<td class=v>" + absent("no such instance") + "</td>";
    const Redaction redaction = words.around(*reading);
    sources = sources_of(*reading, redaction);
    std::string html = reading->value ? value_html(*reading, redaction) : mark("fault", "fault 9002");
    if (!reading->value) marks.insert("fault");
    const std::string error = reading->value ? type_error(*reading->value, reading->parameter.row->type) : "";
    if (!error.empty() && *reading->value != kSecretMark) {
      marks.insert("invalid");
      html += mark("invalid", "no " + to_text(reading->parameter.row->type), error);
    }
    if (std::ranges::any_of(reading->causes, is_missing_source)) {
      marks.insert("missing");
      html += mark("missing", "source missing");
    }
    return "<td class=v>" + html + "</td>";
  }

  static std::string value_html(const WatchedReading& reading, const Redaction& redaction) {
    std::string value = *reading.value;
    if (value.empty()) return absent("empty");
    if (is_secret(*reading.parameter.row) && !redaction.off()) value = kSecretMark;
    const std::string html = to_html(redaction.text(value));
    const bool is_long = value.size() > kLong || value.find('\n') != std::string::npos;
    return is_long ? "<span class=long>" + html + "</span>" : html;
  }

  bool compares_;
  std::vector<SecretWords> words_;  // of each side
  ValueRows rows_;
};

}  // namespace

ValueRows value_rows(const std::vector<Side>& sides, Redaction& redaction) {
  static const std::vector<WatchedReading> kNone;
  const bool compares = sides.size() > 1;
  std::vector<WatchedPair> pairs = pairs_of(sides.front().readings, compares ? sides.back().readings : kNone);
  Table table(sides, redaction);
  for (const std::vector<WatchedPair>& object : by_object(pairs)) table.object(object);
  return table.take();
}

}  // namespace kovadm
