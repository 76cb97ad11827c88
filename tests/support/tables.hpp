// Tables of gets and of sets. A row is independent of the others: what it changed on the device is put back after it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "support/device.hpp"
#include "support/device_state.hpp"

namespace kova::test {

// A handler at instance numbers.
struct At {
  At(parameter_handler function) : handler(function) {}  // NOLINT(google-explicit-constructor): rows name handlers
  At(parameter_handler function, Instances numbers) : handler(function), instances(std::move(numbers)) {}

  parameter_handler handler;
  Instances instances = {1, 1, 1, 1};
};

// Where a value comes from: what the router is made to have before a row's call.
struct Source {
  std::function<void()> put = [] {};
  std::vector<std::string> commands = {};  // which the call has to run
};

inline const Source as_is;
Source operator&&(const Source& first, const Source& second);

// An option of the main store; an empty value leaves none.
Source option(const std::string& path, const std::string& value);
// A whole package file of the main store.
Source package(const std::string& name, const std::string& text);
Source file(const std::string& path, const std::string& text);
Source no_file(const std::string& path);
// What this very command prints when its output is read.
Source prints(const std::string& command, const std::string& output);
// The call has to run this very command, whose output is read; it really runs.
Source asks(const std::string& command);
// Commands whose output would be read cannot be started.
inline const Source no_pipes{[] { seams().popen_fails = true; }};
// No file system has room for a file.
extern const Source no_room;
// The store refuses the first write of this: "package.section.option", or with "=" and the beginning of a value.
Source write_fails(const std::string& setting);
// No command is run: each of those given to system ends with this status, as wait has it.
Source exits(int status);
// The bus's answer to the method status of an object, as a reply or as the cases that lab/README.md describes.
Source status(const std::string& object, const std::string& answer);
Source no_status(const std::string& object);

// What a handler replies: a text, or kGetFailed and the like.
struct Reply : Answer {
  Reply(const char* reply) : Answer(answered(reply)) {}         // NOLINT(google-explicit-constructor)
  Reply(const std::string& reply) : Answer(answered(reply)) {}  // NOLINT(google-explicit-constructor)
  Reply(const Answer& answer) : Answer(answer) {}               // NOLINT(google-explicit-constructor)
};

struct Get {
  At at;
  Source source;
  Reply reply;
  std::string log = {};  // all that the family logs; the core's own messages do not count
};

// A handler that reads an option of the main store as it is, and what it replies without it.
struct OptionGet {
  At at;
  std::string path;
  Reply missing;
  std::string log = {};
};

// All that a set does, in this order: stored options, recorded lines, other files, commands, the family's messages.
using Effects = std::vector<std::string>;

// An option in the main store and in the change mirror, with a value or, for an empty one, removed.
std::string stores(const std::string& path, const std::string& value);
// The same in the main store alone, in the change mirror alone, or in the main store and the forced-change mirror.
std::string changes(const std::string& path, const std::string& value);
std::string mirrors(const std::string& path, const std::string& value);
std::string forces(const std::string& path, const std::string& value);
std::string records(const std::string& line);
std::string records_once(const std::string& line);
std::string writes(const std::string& path, const std::string& contents);
std::string removes(const std::string& path);
std::string runs(const std::string& command);
std::string logs(const std::string& message);

struct Set {
  At at;
  std::string value;
  Outcome outcome;
  Effects effects = {};
  Source before = as_is;
};

// The six counters of an object, in the order of their test.
#define COUNTERS(prefix)                                                                                        \
  {                                                                                                             \
    prefix##BytesSent, prefix##BytesReceived, prefix##PacketsSent, prefix##PacketsReceived, prefix##ErrorsSent, \
        prefix##ErrorsReceived                                                                                  \
  }

class TableTest : public DeviceTest {
 protected:
  static void expect_gets(const std::vector<Get>& rows);
  static void expect_options(const std::vector<OptionGet>& rows);
  static void expect_sets(const std::vector<Set>& rows);

  // A set that stores a text in an option and marks bits; `failure` is logged when it cannot be stored.
  static void expect_stored(const At& at, const std::string& value, const std::string& path, const std::string& stored,
                            uint32_t bits = 0, const std::string& failure = "");

  // A set for which the agent runs the verify script after the request; `failure` is logged when it cannot be recorded.
  static void expect_recorded(const At& at, const std::string& value, const std::string& arguments,
                              const std::string& failure = "");

  // COUNTERS of the interface's layer-3 device.
  static void expect_counters(const std::string& interface, const std::vector<parameter_handler>& counters,
                              const Source& also = as_is);
};

// The name that the catalogue has for it.
std::string name_of(parameter_handler handler);

// What the family has logged since the test or the row began, message by message.
std::vector<std::string> family_messages();

}  // namespace kova::test
