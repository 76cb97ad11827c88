// lab-bus: has a real bus daemon run, and answers there for the objects of /etc/lab/bus, from the same files as the
// stand-in for libubus. Comes back when the bus is up or cannot be; goes on in the background, until the router ends.
// lab-bus refresh: comes back when the bus has followed a change of the files.
#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <exception>
#include <fstream>
#include <map>
#include <memory>
#include <string>

#include "answers.hpp"
#include "refresh.hpp"
extern "C" {
#include <libubox/uloop.h>
#include <libubus.h>
}

namespace {

constexpr int kLookEvery = 100;  // milliseconds: a changed directory is noticed
constexpr int kPatience = 500;   // times 10 milliseconds, for a bus daemon to start
const std::string kRunDirectory = "/var/run/ubus";

// An object that takes any method, known by the name of its directory.
class Object {
 public:
  Object(ubus_context* bus, std::string name, ubus_handler_t handler) : bus_(bus), name_(std::move(name)) {
    method_.handler = handler;
    type_.name = object_.name = name_.c_str();
    object_.type = &type_;
    object_.methods = &method_;
    object_.n_methods = 1;
    if (const int status = ubus_add_object(bus_, &object_); status != UBUS_STATUS_OK)
      fprintf(stderr, "lab-bus: %s: %s\n", name_.c_str(), ubus_strerror(status));
  }
  ~Object() { ubus_remove_object(bus_, &object_); }
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

 private:
  ubus_context* bus_;
  std::string name_;
  ubus_method method_ = {};
  ubus_object_type type_ = {};
  ubus_object object_ = {};
};

class Connection {
 public:
  explicit Connection(ubus_context* bus) : bus_(bus) {
    ubus_add_uloop(bus_);
    bus_->connection_lost = lose;
    lost_ = false;
  }
  ~Connection() {
    objects_.clear();
    ubus_free(bus_);
  }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  static bool is_lost() { return lost_; }

  // Has the objects that there are directories for, and one of this program's own.
  void follow(const std::vector<std::string>& names) {
    std::map<std::string, std::unique_ptr<Object>> wanted;
    for (const std::string& name : names) take_over(wanted, name, answer);
    take_over(wanted, lab::kBusDaemon, refresh);
    objects_ = std::move(wanted);
  }

 private:
  static int answer(ubus_context* bus, ubus_object* object, ubus_request_data* request, const char* method,
                    blob_attr* message);
  static int refresh(ubus_context* bus, ubus_object* object, ubus_request_data* request, const char* method,
                     blob_attr* message);
  static void lose(ubus_context* /*bus*/) { lost_ = true; }

  void take_over(std::map<std::string, std::unique_ptr<Object>>& wanted, const std::string& name,
                 ubus_handler_t handler) {
    std::unique_ptr<Object>& object = objects_[name];
    wanted[name] = object ? std::move(object) : std::make_unique<Object>(bus_, name, handler);
  }

  ubus_context* bus_;
  std::map<std::string, std::unique_ptr<Object>> objects_;
  static bool lost_;
};

bool Connection::lost_ = false;

std::unique_ptr<Connection> connection;
pid_t daemon_process = 0;

void note_process(const char* name, pid_t process) { std::ofstream(kRunDirectory + "/" + name + ".pid") << process; }

void stop_daemon() {
  connection.reset();
  kill(daemon_process, SIGKILL);
  waitpid(daemon_process, nullptr, 0);
}

void start_daemon() {
  daemon_process = fork();
  if (daemon_process < 0) return;  // the next look tries again
  if (daemon_process == 0) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    execlp("ubusd", "ubusd", nullptr);
    _exit(127);
  }
  note_process("ubusd", daemon_process);
  ubus_context* bus = nullptr;
  for (int i = 0; i < kPatience && (bus = ubus_connect(nullptr)) == nullptr; ++i) usleep(10000);
  if (bus == nullptr) return stop_daemon();
  connection = std::make_unique<Connection>(bus);
}

// Without a directory there is no bus; one that has ended is started again.
void follow_files() {
  const auto names = lab::bus_objects();
  if (connection && (!names || Connection::is_lost())) stop_daemon();
  if (!connection && names) start_daemon();
  if (connection && names) connection->follow(*names);
}

int Connection::answer(ubus_context* bus, ubus_object* object, ubus_request_data* request, const char* method,
                       blob_attr* message) try {
  const auto asked = message != nullptr ? lab::to_json(blob_data(message), blob_len(message)) : lab::Json::object();
  const lab::BusAnswer answer = lab::bus_answer(object->name, method, asked);
  blob_buf reply = {};
  const std::unique_ptr<blob_buf, decltype(&blob_buf_free)> owner(&reply, &blob_buf_free);
  for (const lab::Json& part : answer.replies) {
    blob_buf_init(&reply, 0);
    lab::add_members(reply, part);
    ubus_send_reply(bus, request, reply.head);
  }
  return answer.status;
} catch (const std::exception& fault) {
  fprintf(stderr, "lab-bus: %s %s: %s\n", object->name, method, fault.what());
  return UBUS_STATUS_PARSE_ERROR;
}

// For who has changed the files and cannot wait: they are followed when the reply comes.
int Connection::refresh(ubus_context* /*bus*/, ubus_object* /*object*/, ubus_request_data* /*request*/,
                        const char* /*method*/, blob_attr* /*message*/) {
  const auto names = lab::bus_objects();
  if (names) connection->follow(*names);
  return names ? UBUS_STATUS_OK : UBUS_STATUS_NO_DATA;
}

void look(uloop_timeout* timer) {
  follow_files();
  uloop_timeout_set(timer, kLookEvery);
}

[[noreturn]] void serve(int ready) {
  setsid();
  for (const int file : {STDIN_FILENO, STDOUT_FILENO}) dup2(open("/dev/null", O_RDWR), file);
  note_process("lab-bus", getpid());
  uloop_init();
  uloop_timeout timer = {};
  timer.cb = look;
  look(&timer);
  if (connection && write(ready, "", 1) != 1) perror("lab-bus");
  close(ready);  // without a bus as well: who waits has to go on
  uloop_run();
  _exit(0);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && argv[1] == std::string("refresh")) return lab::refresh_bus() ? 0 : 1;
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) return perror("lab-bus"), 1;
  const pid_t child = fork();
  if (child < 0) return perror("lab-bus"), 1;
  if (child == 0) serve(ends[1]);
  close(ends[1]);
  char byte = 0;
  return read(ends[0], &byte, 1) == 1 ? 0 : 1;
}
