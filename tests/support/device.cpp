#include "support/device.hpp"

#include <uci.h>

#include <algorithm>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>

#include "support/device_state.hpp"

namespace kova::test {
namespace {

using Context = std::unique_ptr<uci_context, decltype(&uci_free_context)>;

Context open_store(const std::string& directory) {
  Context context(uci_alloc_context(), &uci_free_context);
  uci_set_confdir(context.get(), directory.c_str());
  return context;
}

std::optional<std::string> stored_at(const std::string& directory, const std::string& path) {
  const size_t first = path.find('.');
  const size_t second = path.find('.', first + 1);
  return stored(directory, path.substr(0, first), path.substr(first + 1, second - first - 1), path.substr(second + 1));
}

// Made once; later tests put back only what the one before has changed, which is quick.
DeviceState factory_state() {
  if (run("/sbin/lab-reset") != 0) throw std::runtime_error("the router cannot be reset");
  return {};
}

}  // namespace

std::optional<std::string> stored(const std::string& directory, const std::string& package, const std::string& section,
                                  const std::string& option) {
  const Context context = open_store(directory);
  uci_package* loaded = nullptr;
  if (uci_load(context.get(), package.c_str(), &loaded) != UCI_OK) return std::nullopt;
  std::string path = package + "." + section + "." + option;
  uci_ptr element = {};
  if (uci_lookup_ptr(context.get(), &element, path.data(), true) != UCI_OK || element.o == nullptr) return std::nullopt;
  if (element.o->type == UCI_TYPE_STRING) return element.o->v.string;
  std::string elements;
  uci_element* element_of_list = nullptr;
  uci_foreach_element(&element.o->v.list, element_of_list) elements += std::string("|") + element_of_list->name;
  return elements;
}

void configure(const std::string& path, const std::string& value) {
  const Context context = open_store("/etc/config");
  std::string text = path;
  uci_ptr element = {};
  if (uci_lookup_ptr(context.get(), &element, text.data(), true) != UCI_OK) throw std::runtime_error("no " + path);
  element.value = value.c_str();
  if (uci_set(context.get(), &element) != UCI_OK || uci_commit(context.get(), &element.p, false) != UCI_OK)
    throw std::runtime_error("cannot set " + path);
}

std::optional<std::string> contents(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

void write_file(const std::string& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  if (!file.flush()) throw std::runtime_error("cannot write " + path);
}

void DeviceTest::SetUp() {
  static const DeviceState factory = factory_state();
  factory.restore();
  write_file("/tmp/cwmp_debug", "");
  seams() = Seams();
}

std::optional<std::string> DeviceTest::config(const std::string& path) { return stored_at("/etc/config", path); }
std::optional<std::string> DeviceTest::mirror(const std::string& path) { return stored_at("/tmp/cwmp-config", path); }
std::optional<std::string> DeviceTest::forced_mirror(const std::string& path) {
  return stored_at("/tmp/cwmp-config-force", path);
}

std::string DeviceTest::task_record() { return contents("/tmp/tr069/cmd_record").value_or(""); }
std::string DeviceTest::task_record_once() { return contents("/tmp/tr069/cmd_record_once").value_or(""); }

std::vector<std::string> DeviceTest::messages() {
  std::vector<std::string> messages;
  for (const std::string& line : seams().syslog) messages.push_back(line.substr(line.find(": ") + 2));
  return messages;
}

bool DeviceTest::logged(const std::string& message) {
  const std::vector<std::string> all = messages();
  return std::find(all.begin(), all.end(), message) != all.end();
}

std::string DeviceTest::take_log() {
  std::string log;
  for (const std::string& message : messages()) log += message;
  seams().syslog.clear();
  return log;
}

}  // namespace kova::test
