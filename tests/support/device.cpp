#include "support/device.hpp"

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include "seam/paths.hpp"
#include "support/device_state.hpp"

namespace kova::test {
namespace {

// Made once; later tests put back only what the one before has changed, which is quick.
seam::Snapshot factory_state() {
  if (run("/sbin/lab-reset") != 0) throw std::runtime_error("the router cannot be reset");
  return seam::Snapshot::of_lab();
}

}  // namespace

std::optional<std::string> stored(const std::string& directory, const std::string& path) {
  const Store store = open_store(directory);
  std::string text = path;
  uci_ptr element = {};
  if (uci_lookup_ptr(store.get(), &element, text.data(), true) != UCI_OK || element.o == nullptr) return std::nullopt;
  return seam::value_of(*element.o);
}

void configure(const std::string& path, const std::string& value) {
  const Store store = open_store(seam::kMainStore);
  std::string text = path;
  uci_ptr element = {};
  if (uci_lookup_ptr(store.get(), &element, text.data(), true) != UCI_OK) throw std::runtime_error("no " + path);
  element.value = value.c_str();
  if (uci_set(store.get(), &element) != UCI_OK || uci_commit(store.get(), &element.p, false) != UCI_OK)
    throw std::runtime_error("cannot set " + path);
}

std::optional<std::string> contents(const std::string& path) {
  return std::ifstream(path) ? std::optional(seam::read_file(path)) : std::nullopt;
}

void DeviceTest::SetUp() {
  static const seam::Snapshot factory = factory_state();
  factory.restore();
  write_file(seam::kDebugFile, "");
  seams() = Seams();
}

std::string DeviceTest::task_record() { return contents(seam::kTaskRecord).value_or(""); }
std::string DeviceTest::task_record_once() { return contents(seam::kTaskRecordOnce).value_or(""); }

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
