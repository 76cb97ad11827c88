// One call of a handler, on a router whose files, commands and bus say what the input says.
#include "seam/handler.hpp"

#include <stdio.h>

#include <cerrno>
#include <filesystem>
#include <iterator>
#include <regex>
#include <vector>

#include "bus.hpp"
#include "input.hpp"
#include "seam/paths.hpp"
#include "seam/snapshot.hpp"
#include "support/catalogue.hpp"
#include "support/mount.hpp"

using namespace kova;
using namespace kova::fuzz;

namespace {

// Answers the router's commands too, and notes which files are read.
class Router final : public Bus {
 public:
  FILE* popen(const char* /*command*/, const char* /*mode*/) override {
    if (command_status == -1) return errno = EMFILE, nullptr;
    ++pipes;
    return fmemopen(printed.data(), printed.size(), "r");
  }
  int pclose(FILE* pipe) override {
    --pipes;
    return fclose(pipe);
  }
  int system(const char* /*command*/) override { return command_status; }

  FILE* fopen(const char* path, const char* mode) override {
    if (*mode == 'r') asked.insert(path);
    return Platform::fopen(path, mode);
  }
  uci_context* uci_alloc_context() override {
    directory_ = seam::kMainStore;
    return Platform::uci_alloc_context();
  }
  int uci_set_confdir(uci_context* context, const char* directory) override {
    directory_ = directory;
    return Platform::uci_set_confdir(context, directory);
  }
  int uci_load(uci_context* context, const char* name, uci_package** package) override {
    asked.insert(directory_ + "/" + name);
    return Platform::uci_load(context, name, package);
  }

  std::set<std::string> asked;
  std::string printed;     // by commands
  int command_status = 0;  // of commands
  int pipes = 0;           // that are open

 private:
  std::string directory_;  // of the store, as last set
};

Router router;
const seam::InUse in_use(router, seam::Calls::OF_PROCESS);

// A file that is no business of the plug-in's.
constexpr char kOutside[] = "/root/outside";
constexpr char kOutsideText[] = "config other 'other'\n\toption own '1'\n";

// The texts that can be spoilt: packages, and what other programs leave for the plug-in to read.
struct World {
  World() {
    seam::write_file(kOutside, kOutsideText);
    files = seam::Snapshot({seam::kMainStore}).texts();
    for (const char* directory : {seam::kMainStore, "/tmp"}) test::mount_memory(directory, 65536);
    for (const char* directory : {seam::kStateFiles, seam::kTestFiles}) std::filesystem::create_directories(directory);
    restore();
    for (const test::Row& row : test::kCatalogue) ask_both(row);
    for (const std::string& path : router.asked) {
      if (path.starts_with("/tmp/")) files[path] = "";
    }
    restore();
    for (const auto& [path, text] : files) paths.push_back(path);
  }

  void restore() const {
    for (const auto& [path, text] : files) seam::write_file(path, text);
  }

  static void ask_both(const test::Row& row) {
    static char output[1 << 16];
    int32_t instances[] = {1, 1, 1, 1, 0, 0};
    uint32_t mask = 0;
    agent_state agent = seam::running_agent();
    seam::get(row.handler, instances, output, &agent);
    seam::set(row.handler, instances, "1", &mask);
  }

  seam::Texts files;
  std::vector<std::string> paths;
};

const World world;  // before the fuzzer has threads, which may not mount

// Every number in a text is the largest that a counter can have.
std::string with_hostile_counters(const std::string& text) {
  static const std::regex number("[0-9]+");
  return std::regex_replace(text, number, "2147483647");
}

std::string spoilt(std::string text, uint32_t kind, Input& input) {
  if (kind >= 240) return with_hostile_counters(text);
  std::string piece = input.text();
  const size_t place = input.number(2) % (text.size() + 1);
  if (kind % 4 == 0) return piece;                                                 // another text
  if (kind % 4 == 1) return text.substr(0, place);                                 // cut
  if (kind % 4 == 2) return text.insert(place, piece);                             // with more
  return text.replace(place, std::min(piece.size(), text.size() - place), piece);  // with something else
}

// Spoils what is at a path: a directory, a link out of the device, or a file with another text.
void spoil(const std::string& path, Input& input) {
  const uint32_t kind = input.number(1);
  if (kind < 250) return seam::write_file(path, spoilt(world.files.at(path), kind, input));
  std::filesystem::remove(path);
  if (kind < 253) {
    std::filesystem::create_directory(path);
  } else {
    std::filesystem::create_symlink(kOutside, path);
  }
}

// What a set may have changed. The mirrors are left to fill up.
void restore(const std::string& spoilt_path) {
  require(seam::read_file(kOutside) == kOutsideText);
  std::error_code unknown;
  if (!std::filesystem::is_regular_file(std::filesystem::symlink_status(spoilt_path)))
    std::filesystem::remove_all(spoilt_path);
  for (const auto& [path, text] : world.files) {
    if (path == spoilt_path || std::filesystem::file_size(path, unknown) != text.size()) seam::write_file(path, text);
  }
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
    agent_state agent = seam::running_agent();
    const int32_t result = seam::get(question.row.handler, question.instances, buffer.all(), &agent);
    require(result == 0 || result == -1);
  } else {
    uint32_t mask = 8;
    const int32_t result =
        seam::set(question.row.handler, question.instances, question.value.c_str(), &mask, question.operation);
    require(result == 0 || (result == -1 && mask == 8));
  }
  const int next = dup(0);
  close(next);
  require(next == descriptor && router.pipes == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Input input(data, size);
  const Question question(input);
  router.command_status = static_cast<int32_t>(input.number(1) % 3) - 1;
  router.status = input.number(1) % 4 == 1 ? 7 : 0;
  const std::string& path = world.paths[input.number(1) % world.paths.size()];
  spoil(path, input);
  router.printed = input.text();
  router.reply = input.text();
  ask(question);
  restore(path);
  return 0;
}
