// The plug-in in an agent that is interrupted all the time, ignores signals, or is killed.
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <map>
#include <optional>
#include <random>
#include <regex>

#include "support/catalogue.hpp"
#include "support/device.hpp"
#include "support/device_state.hpp"

namespace kova::test {
namespace {

const Instances kFirstRow = {1, 1, 1, 1, 0, 0};

// What an agent does with a signal, for its lifetime.
class Disposition {
 public:
  Disposition(int signal, void (*handler)(int)) : signal_(signal) {
    struct sigaction action = {};
    action.sa_handler = handler;  // without SA_RESTART
    sigaction(signal, &action, &before_);
  }
  ~Disposition() { sigaction(signal_, &before_, nullptr); }
  Disposition(const Disposition&) = delete;
  Disposition& operator=(const Disposition&) = delete;

 private:
  int signal_;
  struct sigaction before_ = {};
};

void do_nothing(int /*signal*/) {}

// In microseconds. Between two interruptions a connection to a real bus has to come about, which takes two processes.
#ifdef KOVA_STANDINS
constexpr int kEvery = 500;
#else
constexpr int kEvery = 5000;
#endif

// Interrupts the process that often.
void set_timer(int microseconds) {
  const itimerval timer = {{0, microseconds}, {0, microseconds}};
  setitimer(ITIMER_REAL, &timer, nullptr);
}

bool has_child() { return waitpid(-1, nullptr, WNOHANG) >= 0 || errno != ECHILD; }

class Signals : public DeviceTest {
 protected:
  void SetUp() override {
    DeviceTest::SetUp();
    run("rm /tmp/cwmp_debug");
  }

  // Everything's values; where another one is expected, a second and a third look count: the router lives on.
  static std::vector<Answer> walk(const std::vector<Answer>& expected = {}) {
    std::vector<Answer> answers;
    for (const Row& row : kCatalogue) {
      const size_t place = answers.size();
      answers.push_back(get(row.handler, kFirstRow));
      for (int look = 1; look < 3 && !expected.empty() && answers[place] != expected[place]; ++look)
        answers[place] = get(row.handler, kFirstRow);
      EXPECT_FALSE(has_child()) << row.name;
    }
    return answers;
  }

  static std::vector<Outcome> set_all() {
    const seam::Snapshot before = seam::Snapshot::of_lab();
    std::vector<Outcome> outcomes;
    for (const Row& row : kCatalogue) {
      if (row.access == Access::READ_WRITE) outcomes.push_back(set(row.handler, "1", kFirstRow));
      EXPECT_FALSE(has_child()) << row.name;
    }
    before.restore();
    return outcomes;
  }

  // Loads move by themselves too, and may be the same twice by chance.
  static bool is_load(const std::string& name) {
    static const std::regex loads("CPUUsage|ProcessNumberOfEntries|MemoryStatus_(Free|Used)");
    return std::regex_search(name, loads);
  }

  // What a get answers may change by itself, but not become empty.
  static void expect_as(const std::vector<Answer>& quiet, const std::vector<Answer>& answers,
                        const std::vector<Answer>& quiet_again) {
    for (size_t i = 0; i < answers.size(); ++i) {
      if (quiet[i] == quiet_again[i] && !is_load(kCatalogue[i].name)) {
        EXPECT_EQ(answers[i], quiet[i]) << kCatalogue[i].name;
      } else {
        EXPECT_EQ(answers[i].result, 0) << kCatalogue[i].name;
        EXPECT_FALSE(answers[i].text.empty()) << kCatalogue[i].name;
      }
    }
  }
};

TEST_F(Signals, ResultsAreThoseOfAQuietAgent) {
  const std::vector<Answer> quiet = walk();
  const std::vector<Outcome> outcomes = set_all();
  std::vector<Answer> interrupted;
  std::vector<Answer> ignorant;
  {
    const Disposition timer(SIGALRM, do_nothing);
    const Disposition child(SIGCHLD, do_nothing);
    set_timer(kEvery);
    interrupted = walk(quiet);
    set_timer(0);
  }
  {
    const Disposition child(SIGCHLD, SIG_IGN);
    const Disposition pipe(SIGPIPE, SIG_IGN);
    ignorant = walk(quiet);
    EXPECT_EQ(set_all(), outcomes);
    EXPECT_EQ(cwmp_system("exit 3"), -2);
  }
  const std::vector<Answer> quiet_again = walk();
  expect_as(quiet, interrupted, quiet_again);
  expect_as(quiet, ignorant, quiet_again);
}

// A child that sets the URL to either of two values for as long as it lives.
pid_t start_setting() {
  const pid_t child = fork();
  if (child != 0) return child;
  for (;;) {
    for (const char* value : {"http://one.example/", "http://another.example/"})
      uci_raw_set_value("cwmp", "info", "url", value);
  }
}

TEST_F(Signals, AKillLeavesAWholeStoreAndMirror) {
  std::set<std::string> stores = {*contents("/etc/config/cwmp")};
  std::set<std::string> mirrors = {"", "\n"};  // not there or just made, and made with nothing to keep
  for (const char* value : {"http://one.example/", "http://another.example/"}) {
    uci_raw_set_value("cwmp", "info", "url", value);
    stores.insert(*contents("/etc/config/cwmp"));
    mirrors.insert(*contents("/tmp/cwmp-config/cwmp"));
  }
  std::minstd_rand random(1);
  for (int i = 0; i < 400; ++i) {
    if (i % 4 == 0) run("rm -rf /tmp/cwmp-config");
    const pid_t child = start_setting();
    usleep(static_cast<useconds_t>(random() % 4000));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    EXPECT_EQ(stores.count(contents("/etc/config/cwmp").value_or("gone")), 1U);
    EXPECT_EQ(mirrors.count(contents("/tmp/cwmp-config/cwmp").value_or("")), 1U);
    unlink("/tmp/.uci/cwmp");  // as an agent does
  }
}

}  // namespace
}  // namespace kova::test
