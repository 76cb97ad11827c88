#include "recording/recorded_platform.hpp"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>

#include "processes.hpp"
#include "recording/bus_message.hpp"
#include "recording/kept_files.hpp"
#include "seam/caught_output.hpp"
#include "seam/trace.hpp"

namespace kovadm {
namespace {

namespace fs = std::filesystem;

// More of an output or a file is not kept.
constexpr std::size_t kMost = 1024UL * 1024;

constexpr char kMainStore[] = "/etc/config";
constexpr char kPendingChanges[] = "/tmp/.uci";

std::string read_to_end(FILE* file) {
  std::string text;
  std::array<char, 4096> part = {};
  std::size_t length = 0;
  while (text.size() < kMost && (length = std::fread(part.data(), 1, part.size(), file)) > 0)
    text.append(part.data(), length);
  return text;
}

void write_all(int descriptor, const std::string& text) {
  for (std::size_t written = 0; written < text.size();) {
    const ssize_t length = write(descriptor, text.data() + written, text.size() - written);
    if (length <= 0) return;
    written += static_cast<std::size_t>(length);
  }
}

// An open file that holds the text.
FILE* stream_of(const std::string& text) {
  const int descriptor = memfd_create("recorded", MFD_CLOEXEC);
  if (descriptor < 0) return nullptr;
  write_all(descriptor, text);
  lseek(descriptor, 0, SEEK_SET);
  return fdopen(descriptor, "r");
}

int wait_status(int exit_status) { return exit_status < 0 ? -1 : exit_status << 8; }

FILE* not_there() {
  errno = ENOENT;
  return nullptr;
}

// ---- Asking the machine ----

// Has the command run, and notes what that changed.
template <typename Run>
CommandAnswer watch(Run run) {
  const KeptFiles before = read_kept_files();
  CommandAnswer answer;
  run(answer);
  answer.changed = changes(before, read_kept_files());
  return answer;
}

CommandAnswer ask_for_output(const std::string& command) {
  return watch([&](CommandAnswer& answer) {
    FILE* pipe = machine().open_pipe(command.c_str(), "re");
    if (pipe == nullptr) {
      answer.status = -1;
      return;
    }
    answer.output = read_to_end(pipe);
    answer.status = exit_status(machine().close_pipe(pipe));
  });
}

CommandAnswer ask_to_run(const std::string& command) {
  return watch([&](CommandAnswer& answer) {
    CaughtOutput output({STDOUT_FILENO});
    answer.status = exit_status(machine().run(command.c_str()));
    answer.output = output.take();
  });
}

std::optional<std::string> read_file(const char* path) {
  FILE* file = machine().open_file(path, "re");
  if (file == nullptr) return std::nullopt;
  std::string text = read_to_end(file);
  std::fclose(file);
  return text;
}

void take_reply(ubus_request* request, int /*type*/, blob_attr* reply) {
  static_cast<BusAnswer*>(request->priv)->replies.push_back(to_json(reply));
}

// A connection for one question. `ask` is not called without one.
template <typename Ask>
BusAnswer with_bus(Ask ask) {
  BusAnswer answer;
  ubus_context* bus = machine().connect(nullptr);
  if (bus == nullptr) return {-1, {}};
  ask(bus, answer);
  machine().disconnect(bus);
  return answer;
}

BusAnswer look_up_object(const std::string& object) {
  return with_bus([&](ubus_context* bus, BusAnswer& answer) {
    uint32_t id = 0;
    answer.status = machine().look_up(bus, object.c_str(), &id);
  });
}

BusAnswer invoke_method(const std::string& object, const char* method, blob_attr* message, int timeout) {
  return with_bus([&](ubus_context* bus, BusAnswer& answer) {
    uint32_t id = 0;
    answer.status = machine().look_up(bus, object.c_str(), &id);
    if (answer.status == 0) answer.status = machine().invoke(bus, id, method, message, take_reply, &answer, timeout);
  });
}

}  // namespace

RecordedPlatform::RecordedPlatform(Recording& recording, Source source, std::function<void(const std::string&)> missing)
    : recording_(recording), source_(source), missing_(std::move(missing)) {
  if (source_ == Source::MACHINE) recording_.directories = read_kept_files();
  write_files();
}

void RecordedPlatform::write_files() const {
  for (const char* parent : {"/etc", "/tmp", "/var"}) fs::create_directory(place(parent));
  for (const auto& [directory, files] : recording_.directories) {
    fs::create_directory(place(directory));
    for (const auto& [name, text] : files) write_file(place(file_in(directory, name)), text);
  }
}

// The machine's part in a recording; else tells that it has no answer.
bool RecordedPlatform::asks_machine(const std::string& what) const {
  if (source_ == Source::MACHINE) return true;
  if (missing_) missing_(what);
  return false;
}

// ---- Commands ----

const CommandAnswer* RecordedPlatform::answer(const std::string& command, CommandAnswer (*ask)(const std::string&)) {
  auto found = recording_.commands.find(command);
  if (found == recording_.commands.end()) {
    if (!asks_machine("command " + command)) return nullptr;
    found = recording_.commands.emplace(command, ask(command)).first;
  }
  apply(found->second);
  return &found->second;
}

void RecordedPlatform::apply(const CommandAnswer& answer) const {
  std::error_code ignored;
  for (const auto& [path, text] : answer.changed) {
    if (text) {
      fs::create_directory(fs::path(place(path)).parent_path(), ignored);
      write_file(place(path), *text);
    } else {
      fs::remove(place(path), ignored);
    }
  }
}

FILE* RecordedPlatform::open_pipe(const char* command, const char* /*mode*/) {
  const CommandAnswer* answered = answer(command, ask_for_output);
  if (answered == nullptr || answered->status < 0) return not_there();
  FILE* pipe = stream_of(answered->output);
  if (pipe != nullptr) pipes_[pipe] = wait_status(answered->status);
  return pipe;
}

int RecordedPlatform::close_pipe(FILE* pipe) {
  const int status = pipes_[pipe];
  pipes_.erase(pipe);
  std::fclose(pipe);
  return status;
}

int RecordedPlatform::run(const char* command) {
  const CommandAnswer* answered = answer(command, ask_to_run);
  if (answered == nullptr) return -1;
  std::fflush(nullptr);
  write_all(STDOUT_FILENO, answered->output);
  return wait_status(answered->status);
}

// ---- Files ----

FILE* RecordedPlatform::open_file(const char* path, const char* mode) {
  if (is_in_kept_directory(path)) return Platform::open_file(place(path).c_str(), mode);
  if (*mode != 'r') {
    if (missing_) missing_("file to be written " + std::string(path));
    return not_there();
  }
  auto found = recording_.files.find(path);
  if (found == recording_.files.end()) {
    if (!asks_machine("file " + std::string(path))) return not_there();
    found = recording_.files.emplace(path, read_file(path)).first;
  }
  return found->second ? stream_of(*found->second) : not_there();
}

int RecordedPlatform::test_file(const char* path, int mode) {
  if (is_in_kept_directory(path) || is_kept_directory(path)) return Platform::test_file(place(path).c_str(), mode);
  auto found = recording_.tested.find(path);
  if (found == recording_.tested.end()) {
    const bool known = asks_machine("file " + std::string(path));
    if (known) found = recording_.tested.emplace(path, Platform::test_file(path, mode) == 0).first;
  }
  if (found != recording_.tested.end() && found->second) return 0;
  errno = ENOENT;
  return -1;
}

void RecordedPlatform::log(int priority, const char* format, va_list arguments) {
  if (source_ == Source::MACHINE) Platform::log(priority, format, arguments);
}

// ---- Configuration ----

uci_context* RecordedPlatform::open_store() {
  uci_context* context = Platform::open_store();
  if (context == nullptr) return nullptr;
  set_store_directory(context, kMainStore);
  set_change_directory(context, kPendingChanges);
  return context;
}

int RecordedPlatform::set_store_directory(uci_context* context, const char* directory) {
  return Platform::set_store_directory(context, place(directory).c_str());
}

int RecordedPlatform::set_change_directory(uci_context* context, const char* directory) {
  return Platform::set_change_directory(context, place(directory).c_str());
}

// ---- Bus ----

const BusAnswer* RecordedPlatform::bus_answer(const std::string& call, const std::function<BusAnswer()>& ask) {
  const auto found = recording_.bus.find(call);
  if (found != recording_.bus.end()) return &found->second;
  if (!asks_machine("bus " + call)) return nullptr;
  return &(recording_.bus[call] = ask());
}

ubus_context* RecordedPlatform::connect(const char* /*path*/) {
  const BusAnswer* way = bus_answer(kBusConnection, [] { return with_bus([](auto&&...) {}); });
  if (way == nullptr || way->status != 0) return nullptr;
  return reinterpret_cast<ubus_context*>(this);  // which nobody looks into
}

void RecordedPlatform::disconnect(ubus_context* /*bus*/) {}

int RecordedPlatform::look_up(ubus_context* /*bus*/, const char* object, uint32_t* id) {
  const BusAnswer* answered = bus_answer(object, [&] { return look_up_object(object); });
  if (answered == nullptr) return UBUS_STATUS_NOT_FOUND;
  if (answered->status != 0) return answered->status;
  const auto known = std::find(objects_.begin(), objects_.end(), object);
  *id = static_cast<uint32_t>(known - objects_.begin()) + 1;
  if (known == objects_.end()) objects_.emplace_back(object);
  return 0;
}

int RecordedPlatform::invoke(ubus_context* /*bus*/, uint32_t id, const char* method, blob_attr* asked,
                             ubus_data_handler_t handler, void* handler_context, int timeout) {
  const std::string& object = objects_.at(id - 1);
  const BusAnswer* answered = bus_answer(object + " " + method + message_text(asked),
                                         [&] { return invoke_method(object, method, asked, timeout); });
  if (answered == nullptr) return UBUS_STATUS_METHOD_NOT_FOUND;
  ubus_request request = {};
  request.priv = handler_context;
  for (const nlohmann::ordered_json& reply : answered->replies) {
    const BusMessage message(reply);
    handler(&request, UBUS_MSG_DATA, message.get());
  }
  return answered->status;
}

}  // namespace kovadm
