// One call of a handler, on a router whose files, commands and bus say what the input says.
#include "support/handler.hpp"

#include <stdio.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <vector>

#include "bus.hpp"
#include "input.hpp"
#include "support/catalogue.hpp"
#include "support/mount.hpp"

using namespace kova;
using namespace kova::fuzz;

namespace {

std::string printed;  // by commands
int status = 0;       // of commands
int pipes = 0;        // that are open

// The texts that can be spoilt: packages, and what other programs leave.
struct World {
  World() {
    for (const char* file : {"hosts", "check", "aplist", "timezonelist"}) files["/tmp/tr069/" + std::string(file)] = "";
    for (const char* file : {"ping", "trace", "nslookup", "download", "upload", "neighborwifi"}) {
      for (const char* kind : {"_state", "_result"}) files["/tmp/diag/" + (file + std::string(kind))] = "";
    }
    for (const auto& entry : std::filesystem::directory_iterator("/etc/config")) {
      std::ifstream file(entry.path());
      files[entry.path()] = {std::istreambuf_iterator<char>(file), {}};
    }
    for (const char* directory : {"/etc/config", "/tmp"}) test::mount_memory(directory, 65536);
    for (const char* directory : {"/tmp/tr069", "/tmp/diag"}) std::filesystem::create_directories(directory);
    for (const auto& [path, text] : files) put(path, text);
    for (const auto& [path, text] : files) paths.push_back(path);
  }

  static void put(const std::string& path, const std::string& text) { std::ofstream(path) << text; }

  std::map<std::string, std::string> files;
  std::vector<std::string> paths;
};

const World world;  // before the fuzzer has threads, which may not mount

std::string spoilt(std::string text, Input& input) {
  const uint32_t kind = input.number(1);
  std::string piece = input.text();
  const size_t place = input.number(2) % (text.size() + 1);
  if (kind % 4 == 0) return piece;                                                 // another text
  if (kind % 4 == 1) return text.substr(0, place);                                 // cut
  if (kind % 4 == 2) return text.insert(place, piece);                             // with more
  return text.replace(place, std::min(piece.size(), text.size() - place), piece);  // with something else
}

// A handler and its arguments.
struct Question {
  explicit Question(Input& input)
      : row(test::kCatalogue[input.number(2) % std::size(test::kCatalogue)]),
        operation(static_cast<int32_t>(input.number(1) % 3) - 1) {
    for (int32_t& instance : instances) instance = static_cast<int32_t>(input.number(1) << 24) >> 24;  // with its sign
    value = input.text();
    value.resize(strlen(value.c_str()));
  }

  const test::Row& row;
  int32_t operation;
  int32_t instances[6];
  std::string value;
};

void ask(Question question) {
  static Guarded buffer(1 << 20);
  const int descriptor = dup(0);
  close(descriptor);
  if (question.operation == 0) {
    agent_state agent = test::running_agent();
    const int32_t result = test::call(question.row.handler, 0, question.instances, buffer.all(), &agent);
    require(result == 0 || result == -1);
  } else {
    uint32_t mask = 8;
    const int32_t result =
        test::call(question.row.handler, question.operation, question.instances, question.value.c_str(), &mask);
    require(result == 0 || (result == -1 && mask == 8));
  }
  const int next = dup(0);
  close(next);
  require(next == descriptor && pipes == 0);
}

}  // namespace

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the C library's
extern "C" {

FILE* popen(const char* /*command*/, const char* /*mode*/) {
  if (status == -1) return errno = EMFILE, nullptr;
  ++pipes;
  return fmemopen(printed.data(), printed.size(), "r");
}
int pclose(FILE* pipe) {
  --pipes;
  return fclose(pipe);
}
int system(const char* /*command*/) { return status; }

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Input input(data, size);
  const Question question(input);
  status = static_cast<int32_t>(input.number(1) % 3) - 1;
  bus_status = input.number(1) % 4 == 1 ? 7 : 0;
  const std::string& path = world.paths[input.number(1) % world.paths.size()];
  World::put(path, spoilt(world.files.at(path), input));
  printed = input.text();
  bus_reply = input.text();
  ask(question);
  // A set may have changed any; the mirrors are left to fill up.
  for (const auto& [each, text] : world.files) {
    std::error_code unknown;
    if (each == path || std::filesystem::file_size(each, unknown) != text.size()) World::put(each, text);
  }
  return 0;
}
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
