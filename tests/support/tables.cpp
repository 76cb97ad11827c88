#include "support/tables.hpp"

#include <algorithm>

#include "support/catalogue.hpp"

namespace kova::test {
namespace {

std::string told(const std::string& path, const std::string& value) {
  return path + (value.empty() ? " (none)" : " = " + value);
}

std::string described(const At& at) {
  std::string name = name_of(at.handler) + " (";
  for (const int32_t number : at.instances) name += std::to_string(number) + ' ';
  name.back() = ')';
  return name;
}

// For the time of a row: the source in place, nothing observed yet; everything as it was before at the end.
class RowScope {
 public:
  explicit RowScope(const Source& source) {
    source.put();
    seams().commands.clear();
    seams().syslog.clear();
  }
  ~RowScope() {
    device_.restore();
    seams() = seams_;
  }
  RowScope(const RowScope&) = delete;
  RowScope& operator=(const RowScope&) = delete;

 private:
  seam::Snapshot device_ = seam::Snapshot::of_lab();
  Seams seams_ = seams();
};

Effects logged_if_any(const std::string& message) { return message.empty() ? Effects{} : Effects{logs(message)}; }

std::string answer_file(const std::string& object) { return "/etc/lab/bus/" + object + "/status.json"; }

}  // namespace

std::string name_of(parameter_handler handler) {
  const auto* const row = std::find_if(std::begin(kCatalogue), std::end(kCatalogue),
                                       [=](const Row& candidate) { return candidate.handler == handler; });
  return row != std::end(kCatalogue) ? row->name : "(not in the catalogue)";
}

// ---- Sources ----

Source operator&&(const Source& first, const Source& second) {
  Source both{[=] {
    first.put();
    second.put();
  }};
  for (const Source& source : {first, second})
    both.commands.insert(both.commands.end(), source.commands.begin(), source.commands.end());
  return both;
}

Source option(const std::string& path, const std::string& value) {
  return {[=] { configure(path, value); }};
}

Source package(const std::string& name, const std::string& text) { return file("/etc/config/" + name, text); }

Source file(const std::string& path, const std::string& text) {
  return {[=] {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    write_file(path, text);
  }};
}

Source no_file(const std::string& path) {
  return {[=] { std::filesystem::remove_all(path); }};
}

Source prints(const std::string& command, const std::string& output) {
  return {[=] { seams().answer(command, output); }, {command}};
}

Source asks(const std::string& command) {
  return {[] {}, {command}};
}

const Source no_room{[] {
  struct statfs full = {};
  full.f_blocks = full.f_frsize = 4096;
  seams().file_system = full;
}};

Source write_fails(const std::string& setting) {
  return {[=] {
    seams().on_log = [=](const std::string& message) {
      if (message.find(": uci set " + setting) != std::string::npos) seams().config_context_fails = true;
      if (message.ends_with(": FTSUC.\n\n")) seams().config_context_fails = false;
    };
  }};
}

Source exits(int status) {
  return {[=] { seams().system_status = [status](const std::string& /*command*/) { return &status; }; }};
}

Source status(const std::string& object, const std::string& answer) { return file(answer_file(object), answer); }
Source no_status(const std::string& object) { return no_file(answer_file(object)); }

// ---- Effects ----

std::string stores(const std::string& path, const std::string& value) { return "stores " + told(path, value); }
std::string changes(const std::string& path, const std::string& value) { return "changes " + told(path, value); }
std::string mirrors(const std::string& path, const std::string& value) { return "mirrors " + told(path, value); }
std::string forces(const std::string& path, const std::string& value) { return "forces " + told(path, value); }
std::string records(const std::string& line) { return "records " + line; }
std::string records_once(const std::string& line) { return "records once " + line; }
std::string writes(const std::string& path, const std::string& contents) { return "writes " + told(path, contents); }
std::string removes(const std::string& path) { return "removes " + path; }
std::string runs(const std::string& command) { return "runs " + command; }
std::string logs(const std::string& message) { return "logs " + message; }

std::vector<std::string> family_messages() {
  std::vector<std::string> messages;
  for (const std::string& line : seams().syslog) {
    if (!line.starts_with("pkg-tool.c, ")) messages.push_back(line.substr(line.find(": ") + 2));
  }
  return messages;
}

// ---- Rows ----

void TableTest::expect_gets(const std::vector<Get>& rows) {
  for (const Get& row : rows) {
    SCOPED_TRACE("row " + std::to_string(&row - rows.data()) + ": get " + described(row.at));
    const RowScope scope(row.source);
    EXPECT_EQ(get(row.at.handler, row.at.instances), static_cast<const Answer&>(row.reply));
    std::string log;
    for (const std::string& message : family_messages()) log += message;
    EXPECT_EQ(log, row.log);
    for (const std::string& command : row.source.commands)
      EXPECT_NE(std::count(commands().begin(), commands().end(), command), 0) << "not run: " << command;
  }
}

void TableTest::expect_options(const std::vector<OptionGet>& rows) {
  for (const auto& [at, path, missing, log] : rows)
    expect_gets({{at, option(path, "as it's"), "as it's"}, {at, option(path, ""), missing, log}});
}

void TableTest::expect_stored(const At& at, const std::string& value, const std::string& path,
                              const std::string& stored, uint32_t bits, const std::string& failure) {
  const Source other = option(path, stored.empty() ? "other" : "");
  expect_sets({{at, value, accepted(bits), {stores(path, stored)}, other},
               {at, value, kRefused, logged_if_any(failure), other && write_fails(path)}});
}

void TableTest::expect_recorded(const At& at, const std::string& value, const std::string& arguments,
                                const std::string& failure) {
  expect_sets({{at, value, accepted(APPLY_TASK_COMMANDS), {records("lua /usr/bin/tr069/verify_pms " + arguments)}},
               {at, value, kRefused, logged_if_any(failure), no_file("/tmp/tr069")}});
}

void TableTest::expect_counters(const std::string& interface, const std::vector<parameter_handler>& counters,
                                const Source& also) {
  const Source kernel =
      status("network.interface." + interface, R"({"up": true, "device": "other", "l3_device": "l3-test"})") &&
      prints("cat /proc/net/dev|grep -w l3-test", " l3-test: 11 12 13 0 0 0 0 0 21 22 23 0 0 0 0 0\n");
  const char* const counted[] = {"21", "11", "22", "12", "23", "13"};
  for (size_t i = 0; i < counters.size(); ++i) expect_gets({{counters[i], kernel && also, counted[i]}});
}

void TableTest::expect_sets(const std::vector<Set>& rows) {
  for (const Set& row : rows) {
    SCOPED_TRACE("row " + std::to_string(&row - rows.data()) + ": set " + described(row.at) + " to \"" + row.value +
                 '"');
    const RowScope scope(row.before);
    const seam::Snapshot before = seam::Snapshot::of_lab();
    EXPECT_EQ(set(row.at.handler, row.value, row.at.instances), row.outcome);
    Effects effects = effects_since(before);
    for (const std::string& command : commands()) effects.push_back(runs(command));
    for (const std::string& message : family_messages()) effects.push_back(logs(message));
    EXPECT_EQ(effects, row.effects);
  }
}

}  // namespace kova::test
