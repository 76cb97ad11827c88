// Every handler, get and set, in an agent or on a router where something is not as it should be.
#include <fcntl.h>
#include <pthread.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <functional>

#include "support/catalogue.hpp"
#include "support/device.hpp"
#include "support/device_state.hpp"
#include "support/mount.hpp"

namespace kova::test {
namespace {

constexpr uint32_t kMask = 0x80000008;  // not among those that a handler raises

void limit(int resource, rlim_t most) {
  const rlimit limits = {most, most};
  setrlimit(resource, &limits);
}

// ---- What a child that calls all handlers finds, on a pipe to the test ----

int findings = -1;

void find(const std::string& name, const char* finding) {
  const std::string line = name + " " + finding + "\n";
  [[maybe_unused]] const ssize_t written = write(findings, line.data(), line.size());
}

int next_descriptor() {
  const int descriptor = open("/", O_RDONLY);
  if (descriptor >= 0) close(descriptor);
  return descriptor;
}

void try_handler(const Row& row) {
  static char output[1 << 16];
  static agent_state agent = running_agent();
  const int descriptor = next_descriptor();
  std::array<int32_t, 6> instances = {1, 1, 1, 1, 0, 0};
  const int32_t got = call(row.handler, 0, instances.data(), output, &agent);
  if (got != 0 && got != -1) find(row.name, "gets with a result of its own");
  for (const char* value : {"1", "192.168.1.100", "Requested", "text of eight and more"}) {
    if (row.access == Access::READ_ONLY) break;
    instances = {1, 1, 1, 1, 0, 0};
    uint32_t mask = kMask;
    const int32_t result = call(row.handler, 1, instances.data(), value, &mask);
    if (result != 0 && result != -1) find(row.name, "sets with a result of its own");
    if (result == -1 && mask != kMask) find(row.name, "marks and fails");
  }
  if (next_descriptor() != descriptor) find(row.name, "keeps a descriptor");
  if (waitpid(-1, nullptr, WNOHANG) != -1) find(row.name, "leaves a child");
}

void* try_all(void* /*unused*/) {
  for (const Row& row : kCatalogue) try_handler(row);
  kova_look_begin();
  for (const Row& row : kCatalogue) try_handler(row);
  return nullptr;
}

void try_all_with_stack(size_t size) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, size);
  pthread_t thread;
  if (pthread_create(&thread, &attributes, try_all, nullptr) != 0) return find("a thread", "cannot be started");
  pthread_join(thread, nullptr);
}

// ---- Conditions ----

void close_standard_descriptors() {
  for (const int number : {0, 1, 2}) close(number);
  seams().on_log = [](const std::string& message) {
    for (const char* path : {"/proc/self/fd/0", "/proc/self/fd/1", "/proc/self/fd/2"}) {
      std::array<char, 64> target = {};
      if (readlink(path, target.data(), target.size() - 1) > 0 && strcmp(target.data(), "/dev/null") != 0)
        find(message, "is logged into a file");
    }
  };
}

void open_many() {
  limit(RLIMIT_NOFILE, 2048);
  for (int i = 0; i < 1100; ++i) dup(findings);
}

void block_all() {
  sigset_t all;
  sigfillset(&all);
  sigprocmask(SIG_BLOCK, &all, nullptr);
}

struct Condition {
  const char* name;
  std::function<void()> agent;   // what the agent has done to itself
  const char* router = "true";   // what somebody has done to the router
  const char* memory = nullptr;  // a directory that is a small file system
};

const Condition kConditions[] = {
    {"nothing", [] {}},
    {"no standard descriptors", close_standard_descriptors},
    {"1,100 open descriptors", open_many},
    {"6 descriptors at most", [] { limit(RLIMIT_NOFILE, 6); }},
    {"16 descriptors at most", [] { limit(RLIMIT_NOFILE, 16); }},
    {"SIGCHLD ignored", [] { std::signal(SIGCHLD, SIG_IGN); }},
    {"SIGPIPE ignored", [] { std::signal(SIGPIPE, SIG_IGN); }},
    {"signals blocked", block_all},
    {"files of 100 bytes at most",
     [] {
       std::signal(SIGXFSZ, SIG_IGN);
       limit(RLIMIT_FSIZE, 100);
     }},
    {"full store", [] {}, "dd if=/dev/zero of=/etc/config/full bs=1k 2>/dev/null; true", "/etc/config"},
    {"full temporary files", [] {},
     "mkdir -p /tmp/tr069 /tmp/diag; dd if=/dev/zero of=/tmp/full bs=1k 2>/dev/null; true", "/tmp"},
    {"no places", [] {}, "rm -r /tmp/tr069 /tmp/diag /etc/config"},
    {"files for places", [] {},
     "cd /tmp; rm -r tr069 diag; touch tr069 diag cwmp-config; rm -r /etc/config; touch /etc/config"},
    {"directories for files", [] {},
     "cd /tmp/tr069; mkdir -p cmd_record cmd_record_once hosts check ../diag/ping_state ../cwmp-config/cwmp; "
     "cd /etc/config; rm network wireless; mkdir network wireless"},
    {"links for files", [] {},
     "cd /etc; mv config/cwmp config/network .; ln -s ../cwmp ../network config; mkdir elsewhere; ln -s /etc/elsewhere "
     "/tmp/cwmp-config; "
     "cd /tmp; ln -s /etc/rom_version diag/ping_state; ln -s /etc/rom_version tr069/cmd_record_once"},
    {"packages that cannot be read", [] {}, "for package in /etc/config/*; do echo \"config 'torn\" > $package; done"},
};

// What a process of its own finds that is this agent, and how it ends when not by itself.
std::string find_in_child(const std::function<void()>& agent) {
  int ends[2];
  if (pipe(ends) != 0) return "no pipe";
  const pid_t child = fork();
  if (child == 0) {
    close(ends[0]);
    findings = fcntl(ends[1], F_DUPFD, 3);
    setenv("PATH", "/nowhere", 1);  // every command is run, and prints nothing
    agent();
    try_all(nullptr);
    _exit(0);
  }
  close(ends[1]);
  std::string found;
  std::array<char, 4096> part;
  for (ssize_t size; (size = read(ends[0], part.data(), part.size())) > 0;)
    found.append(part.data(), static_cast<size_t>(size));
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  return status == 0 ? found : found + "ends with status " + std::to_string(status);
}

// Packages that have less than a whole section.
std::string emptied_packages() {
  std::string emptied;
  for (const char* package : {"cwmp", "network", "wireless", "firewall", "system", "dhcp"}) {
    const std::string path = std::string("/etc/config/") + package;
    const std::string text = contents(path).value_or("");
    if (text.find("config ") == std::string::npos || !text.ends_with('\n')) emptied += path + ' ';
  }
  return emptied;
}

class Conditions : public DeviceTest {};

TEST_F(Conditions, NothingDiesKeepsMarksAFailureOrEmptiesAFile) {
  const seam::Snapshot factory = seam::Snapshot::of_lab();
  const std::string firmware = *contents("/etc/rom_version");
  for (const Condition& condition : kConditions) {
    SCOPED_TRACE(condition.name);
    if (condition.memory != nullptr) {
      const std::string copy = std::string("cp -a ") + condition.memory + "/. /etc/kept";
      run("mkdir -p /etc/kept; " + copy);
      if (!mount_memory(condition.memory, 128)) continue;
      run(std::string("cp -a /etc/kept/. ") + condition.memory + "; rm -r /etc/kept");
    }
    run(condition.router);
    const std::string emptied = emptied_packages();
    EXPECT_EQ(find_in_child(condition.agent), "");
    EXPECT_EQ(emptied_packages(), emptied);
    EXPECT_EQ(contents("/etc/rom_version"), firmware);
    EXPECT_EQ(task_record().find("pkg-"), std::string::npos);
    if (condition.memory != nullptr) umount(condition.memory);
    run("rm -rf /etc/config /tmp/cwmp-config /tmp/tr069 /tmp/diag /etc/elsewhere /etc/cwmp /etc/network");
    factory.restore();
  }
}

TEST_F(Conditions, AThreadWithASmallStackIsEnough) {
  EXPECT_EQ(find_in_child([] {
              try_all_with_stack(64 * 1024);
              _exit(0);
            }),
            "");
}

}  // namespace
}  // namespace kova::test
