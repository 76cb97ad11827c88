#include "recording/recorded_platform.hpp"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>

#include "device/processes.hpp"
#include "recording/bus_message.hpp"
#include "seam/caught_output.hpp"
#include "seam/snapshot.hpp"
#include "seam/trace.hpp"

namespace kovadm {
namespace {

namespace fs = std::filesystem;

// More of an output or a file is not kept.
constexpr std::size_t kMost = 1024UL * 1024;

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

// An open file that holds the text; -1 for none.
int descriptor_of(const std::string& text) {
  const int descriptor = memfd_create("recorded", MFD_CLOEXEC);
  if (descriptor < 0) return -1;
  write_all(descriptor, text);
  lseek(descriptor, 0, SEEK_SET);
  return descriptor;
}

FILE* stream_of(int descriptor) { return descriptor < 0 ? nullptr : fdopen(descriptor, "r"); }

int wait_status(int exit_status) { return exit_status < 0 ? -1 : exit_status << 8; }

int not_there() {
  errno = ENOENT;
  return -1;
}

// ---- Asking the machine ----

// A file's path, or its directory's, where that is a link; else nothing.
std::string link_to(const fs::path& file) {
  for (const fs::path& path : {file.parent_path(), file}) {
    if (fs::is_symlink(path)) return path;
  }
  return "";
}

// A file of the machine's as it was, or not at all; whole at any time.
void put_back(const fs::path& changed, const std::optional<std::string>& text) {
  const fs::path path = fs::weakly_canonical(changed);
  if (!text) {
    fs::remove(path);
    return;
  }
  const fs::path beside = path.string() + ".kovadm";
  seam::write_file(beside, *text);
  if (fs::exists(path)) fs::permissions(beside, fs::status(path).permissions());
  fs::rename(beside, path);
}

// Has the command run, and notes what that changed; puts it back, if that is only tried.
template <typename Run>
CommandAnswer watch(RecordedPlatform::Source source, Run run) {
  const seam::Texts start = seam::kept_files(seam::machine());
  CommandAnswer answer;
  {
    seam::CaughtOutput errors({STDERR_FILENO});
    run(answer);
    answer.errors = errors.take().substr(0, kMost);
  }
  for (const auto& [path, before, after] : seam::differences(start, seam::kept_files(seam::machine()))) {
    if (link_to(path).empty()) answer.changed[path] = after;
    if (source == RecordedPlatform::Source::TRIAL) put_back(path, before);
  }
  return answer;
}

CommandAnswer ask_for_output(RecordedPlatform::Source source, const std::string& command) {
  return watch(source, [&](CommandAnswer& answer) {
    FILE* pipe = seam::machine().popen(command.c_str(), "re");
    if (pipe == nullptr) {
      answer.status = -1;
      return;
    }
    answer.output = read_to_end(pipe);
    answer.status = exit_status(seam::machine().pclose(pipe));
  });
}

CommandAnswer ask_to_run(RecordedPlatform::Source source, const std::string& command) {
  return watch(source, [&](CommandAnswer& answer) {
    seam::CaughtOutput output({STDOUT_FILENO});
    answer.status = exit_status(seam::machine().system(command.c_str()));
    answer.output = output.take();
  });
}

std::optional<std::string> read_from_machine(const char* path) {
  FILE* file = seam::machine().fopen(path, "re");
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
  ubus_context* bus = seam::machine().ubus_connect(nullptr);
  if (bus == nullptr) return {-1, {}};
  ask(bus, answer);
  seam::machine().ubus_free(bus);
  return answer;
}

BusAnswer look_up_object(const std::string& object) {
  return with_bus([&](ubus_context* bus, BusAnswer& answer) {
    uint32_t id = 0;
    answer.status = seam::machine().ubus_lookup_id(bus, object.c_str(), &id);
  });
}

BusAnswer invoke_method(const std::string& object, const char* method, blob_attr* message, int timeout) {
  return with_bus([&](ubus_context* bus, BusAnswer& answer) {
    uint32_t id = 0;
    answer.status = seam::machine().ubus_lookup_id(bus, object.c_str(), &id);
    if (answer.status == 0)
      answer.status = seam::machine().ubus_invoke_fd(bus, id, method, message, take_reply, &answer, timeout, -1);
  });
}

}  // namespace

RecordedPlatform::RecordedPlatform(Recording& recording, Source source, std::function<void(const std::string&)> missing)
    : Placed(path()), recording_(recording), source_(source), missing_(std::move(missing)) {
  if (source_ != Source::RECORDING) read_directories();
  write_files();
}

void RecordedPlatform::read_directories() {
  for (const char* directory : seam::kKeptDirectories) {
    if (fs::is_directory(fs::symlink_status(directory))) recording_.directories[directory];
  }
  for (const auto& [path, text] : seam::kept_files(seam::machine())) {
    const std::string link = link_to(path);
    if (link.empty()) {
      recording_.directories[fs::path(path).parent_path()][fs::path(path).filename()] = text;
    } else {
      left_out_.insert(link);
    }
  }
}

void RecordedPlatform::write_files() const {
  for (const char* parent : {"/etc", "/tmp", "/var"}) fs::create_directory(place(parent));
  for (const auto& [directory, files] : recording_.directories) {
    fs::create_directory(place(directory));
    for (const auto& [name, text] : files) seam::write_file(place(file_in(directory, name)), text);
  }
}

// The machine's part in a recording; else tells that it has no answer.
bool RecordedPlatform::asks_machine(const std::string& what) const {
  if (source_ != Source::RECORDING) return true;
  if (missing_) missing_(what);
  return false;
}

// ---- Commands ----

const CommandAnswer* RecordedPlatform::answer(const std::string& command,
                                              CommandAnswer (*ask)(Source, const std::string&)) {
  auto found = recording_.commands.find(command);
  if (found == recording_.commands.end()) {
    if (!asks_machine("command " + command)) return nullptr;
    found = recording_.commands.emplace(command, ask(source_, command)).first;
  }
  apply(found->second);
  write_all(STDERR_FILENO, found->second.errors);
  return &found->second;
}

void RecordedPlatform::apply(const CommandAnswer& answer) const {
  std::error_code ignored;
  for (const auto& [path, text] : answer.changed) {
    if (text) {
      fs::create_directory(fs::path(place(path)).parent_path(), ignored);
      seam::write_file(place(path), *text);
    } else {
      fs::remove(place(path), ignored);
    }
  }
}

FILE* RecordedPlatform::popen(const char* command, const char* /*mode*/) {
  const CommandAnswer* answered = answer(command, ask_for_output);
  if (answered == nullptr || answered->status < 0) return not_there(), nullptr;
  FILE* pipe = stream_of(descriptor_of(answered->output));
  if (pipe != nullptr) pipes_[pipe] = wait_status(answered->status);
  return pipe;
}

int RecordedPlatform::pclose(FILE* pipe) {
  const int status = pipes_[pipe];
  pipes_.erase(pipe);
  std::fclose(pipe);
  return status;
}

int RecordedPlatform::system(const char* command) {
  if (source_ == Source::TRIAL) return 0;
  const CommandAnswer* answered = answer(command, ask_to_run);
  if (answered == nullptr) return -1;
  std::fflush(nullptr);
  write_all(STDOUT_FILENO, answered->output);
  return wait_status(answered->status);
}

// ---- Files ----

// One that is not among those of the kept directories.
int RecordedPlatform::open_recorded(const char* path, bool writes) {
  if (writes) {
    if (missing_) missing_("file to be written " + std::string(path));
    return not_there();
  }
  auto found = recording_.files.find(path);
  if (found == recording_.files.end()) {
    if (!asks_machine("file " + std::string(path))) return not_there();
    found = recording_.files.emplace(path, read_from_machine(path)).first;
  }
  return found->second ? descriptor_of(*found->second) : not_there();
}

FILE* RecordedPlatform::fopen(const char* path, const char* mode) {
  return is_in_kept_directory(path) ? Placed::fopen(path, mode) : stream_of(open_recorded(path, *mode != 'r'));
}

int RecordedPlatform::open(const char* path, int flags, mode_t mode) {
  if (path == std::string_view("/dev/null")) return seam::machine().open(path, flags, mode);
  if (is_in_kept_directory(path) || is_kept_directory(path)) return Placed::open(path, flags, mode);
  return open_recorded(path, (flags & O_ACCMODE) != O_RDONLY);
}

int RecordedPlatform::access(const char* path, int mode) {
  if (is_in_kept_directory(path) || is_kept_directory(path) || path == std::string_view(seam::kDebugFile))
    return Placed::access(path, mode);
  auto found = recording_.tested.find(path);
  if (found == recording_.tested.end()) {
    const bool known = asks_machine("file " + std::string(path));
    if (known) found = recording_.tested.emplace(path, seam::machine().access(path, mode) == 0).first;
  }
  return found != recording_.tested.end() && found->second ? 0 : not_there();
}

// A recording has all the room of the world, not that of another machine's disk.
int RecordedPlatform::statfs(const char* path, struct statfs* status) {
  return source_ != Source::RECORDING ? seam::machine().statfs(path, status) : not_there();
}

void RecordedPlatform::vsyslog(int priority, const char* format, va_list arguments) {
  if (source_ != Source::RECORDING) Platform::vsyslog(priority, format, arguments);
}

// ---- Bus ----

const BusAnswer* RecordedPlatform::bus_answer(const std::string& call, const std::function<BusAnswer()>& ask) {
  const auto found = recording_.bus.find(call);
  if (found != recording_.bus.end()) return &found->second;
  if (!asks_machine("bus " + call)) return nullptr;
  return &(recording_.bus[call] = ask());
}

ubus_context* RecordedPlatform::ubus_connect(const char* /*socket*/) {
  const BusAnswer* way = bus_answer(kBusConnection, [] { return with_bus([](auto&&...) {}); });
  if (way == nullptr || way->status != 0) return nullptr;
  return reinterpret_cast<ubus_context*>(this);  // which nobody looks into
}

void RecordedPlatform::ubus_free(ubus_context* /*bus*/) {}

int RecordedPlatform::ubus_lookup_id(ubus_context* /*bus*/, const char* object, uint32_t* id) {
  const BusAnswer* answered = bus_answer(object, [&] { return look_up_object(object); });
  if (answered == nullptr) return UBUS_STATUS_NOT_FOUND;
  if (answered->status != 0) return answered->status;
  const auto known = std::find(objects_.begin(), objects_.end(), object);
  *id = static_cast<uint32_t>(known - objects_.begin()) + 1;
  if (known == objects_.end()) objects_.emplace_back(object);
  return 0;
}

int RecordedPlatform::ubus_invoke_fd(ubus_context* /*bus*/, uint32_t id, const char* method, blob_attr* asked,
                                     ubus_data_handler_t handler, void* context, int timeout, int /*file*/) {
  const std::string& object = objects_.at(id - 1);
  const BusAnswer* answered = bus_answer(object + " " + method + seam::message_text(asked),
                                         [&] { return invoke_method(object, method, asked, timeout); });
  if (answered == nullptr) return UBUS_STATUS_METHOD_NOT_FOUND;
  ubus_request request = {};
  request.priv = context;
  for (const nlohmann::ordered_json& reply : answered->replies) {
    const BusMessage message(reply);
    handler(&request, UBUS_MSG_DATA, message.get());
  }
  return answered->status;
}

}  // namespace kovadm
