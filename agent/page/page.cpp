#include "page/page.hpp"

#include <algorithm>

#include "model/profile.hpp"
#include "page/html.hpp"
#include "page/page_texts.hpp"
#include "page/profile_bars.hpp"
#include "page/value_rows.hpp"

namespace kovadm {
namespace {

using Json = nlohmann::ordered_json;

constexpr char kInfo[] = "Device.DeviceInfo.";

// Of a parameter below kInfo; empty where it was not read.
std::string info(const Side& side, const std::string& name) {
  const auto found = std::find_if(side.readings.begin(), side.readings.end(), [&](const WatchedReading& reading) {
    return reading.parameter.path == kInfo + name;
  });
  return found != side.readings.end() ? found->value.value_or("") : "";
}

// The texts that there are.
std::string joined(const std::vector<std::string>& texts, const std::string& between) {
  std::string all;
  for (const std::string& text : texts) {
    if (!text.empty()) all += (all.empty() ? "" : between) + text;
  }
  return all;
}

std::string labelled(const std::string& label, const std::string& text) {
  return text.empty() ? "" : label + " " + text;
}

std::string title_of(const Side& side) {
  const std::string title = joined({info(side, "ModelName"), info(side, "SerialNumber")}, " ");
  return title.empty() ? side.name : title;
}

std::string facts_of(const std::vector<Side>& sides) {
  const auto origin = [](const Side& side) { return joined({side.name, side.time}, ", "); };
  if (sides.size() > 1) return origin(sides.front()) + " → " + origin(sides.back());
  const Side& side = sides.front();
  return joined({labelled("Software", info(side, "SoftwareVersion")),
                 labelled("hardware", info(side, "HardwareVersion")), origin(side)},
                " · ");
}

std::string headings_of(const std::vector<Side>& sides) {
  std::string values = "<th scope=col>Value</th>";
  if (sides.size() > 1)
    values =
        "<th scope=col>" + to_html(sides.front().name) + "</th><th scope=col>" + to_html(sides.back().name) + "</th>";
  return "<th scope=col class=name>Parameter</th>" + values +
         "<th scope=col class=type>Type</th><th scope=col class=access>Access</th>";
}

std::string policy() {
  return std::string("default-src 'none'; script-src '") + kPageScriptHash + "'; style-src '" + kPageStyleHash +
         "'; base-uri 'none'; form-action 'none'";
}

}  // namespace

Page page_of(const std::vector<Side>& sides, Redaction& redaction) {
  const ValueRows rows = value_rows(sides, redaction);
  Json names = Json::array();
  for (const Side& side : sides) names.push_back(readable(side.name));
  return {fill(kPageTemplate, {{"POLICY", policy()},
                               {"TITLE", to_html(redaction.text(title_of(sides.back())))},
                               {"FACTS", to_html(redaction.text(facts_of(sides)))},
                               {"STYLE", kPageStyle},
                               {"SCRIPT", kPageScript},
                               {"COUNT", std::to_string(rows.count)},
                               {"PROFILE_COUNT", std::to_string(profiles().size())},
                               {"HEADINGS", headings_of(sides)},
                               {"ROWS", rows.html},
                               {"PROFILES", profile_bars(sides.back().readings)},
                               {"DATA", to_script({{"sides", names}, {"details", rows.details}})}}),
          rows.count, rows.marks};
}

}  // namespace kovadm
