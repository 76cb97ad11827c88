#include "session/stay.hpp"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <random>

#include "session/interrupt.hpp"
#include "session/listener.hpp"

namespace kovadm::session {
namespace {

constexpr double kLookSeconds = 5;  // between two looks at what may have changed
constexpr char kAnyPort[] = "127.0.0.1:0";

// What the simulated router names is reached from outside of it.
std::string place_to_listen(const std::string& asked) {
  const char* named = std::getenv("KOVA_LISTEN");
  return !asked.empty() ? asked : named != nullptr ? named : kAnyPort;
}

double now() { return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count(); }

double some_of(std::pair<double, double> range) {
  static std::mt19937 numbers(std::random_device{}());
  return std::uniform_real_distribution(range.first, range.second)(numbers);
}

class Stay {
 public:
  Stay(Device& device, Context& context, const Options& options)
      : device_(device),
        context_(context),
        listener_(place_to_listen(options.listen), &Interrupt::wake),
        events_(options.events.begin(), options.events.end()) {
    device_.agent().listens_at(listener_.host(), listener_.port(), kRequestPath);
    look();
    address_ = now_address_;
    context_.output().line("listens: http://" + listener_.host() + ":" + std::to_string(listener_.port()) +
                           kRequestPath);
  }

  void run() {
    while (interrupted() == 0) {
      try {
        take_turn();
      } catch (const SetupError& error) {  // another one has the device for long
        context_.output().line(error.what());
      }
      Interrupt::wait(until_next());
    }
    context_.output().line("ended");
  }

 private:
  void take_turn() {
    look();
    note_events();
    if (!events_.empty() && now() >= not_before_) call();
  }

  // What the data model says now.
  void look() {
    const auto alone = device_.alone();
    const Tree& tree = device_.tree();
    listener_.admit(tree.value("ManagementServer.ConnectionRequestUsername"),
                    tree.value("ManagementServer.ConnectionRequestPassword"));
    const bool periodic = tree.value("ManagementServer.PeriodicInformEnable") == "1";
    const double seconds = std::atof(tree.value("ManagementServer.PeriodicInformInterval").c_str());
    period_ = periodic && seconds >= 1 ? seconds : 0;
    now_address_ = wan_address(device_.agent(), tree);
  }

  void note_events() {
    if (listener_.take_request()) {
      events_.insert(kConnectionRequest);
      not_before_ = 0;
    }
    if (now_address_ != address_) events_.insert(kValueChange);
    if (period_ > 0 && now() >= periodic_since_ + period_) {
      events_.insert(kPeriodic);
      periodic_since_ = now();
    }
  }

  void call() {
    const auto address = now_address_;
    if (!device_.hold(events_, retries_)) {
      const double wait = some_of(retry_wait(++retries_));
      not_before_ = now() + wait;
      context_.output().line("tries again in " + std::to_string(std::lround(wait)) + " s");
      return;
    }
    address_ = address;
    events_.clear();
    retries_ = 0;
    if (device_.finish_sets()) events_.insert(kDiagnosticsComplete);
    if (!context_.options().json) context_.output().document().erase("sessions");  // nobody is to see them
    look();
  }

  // Seconds.
  double until_next() const {
    double until = kLookSeconds;
    if (period_ > 0) until = std::min(until, periodic_since_ + period_ - now());
    if (!events_.empty()) until = std::min(until, not_before_ - now());
    return std::max(until, 0.0);
  }

  Device& device_;
  Context& context_;
  Listener listener_;
  std::set<std::string> events_;  // that the server has not been told of
  int retries_ = 0;
  double not_before_ = 0;
  double period_ = 0;  // seconds; 0: none
  double periodic_since_ = now();
  std::optional<WanAddress> address_;  // as the server knows it
  std::optional<WanAddress> now_address_;
};

}  // namespace

std::pair<double, double> retry_wait(int retries) {
  constexpr int kMost = 10;
  const double least = 5 * std::pow(2, std::min(retries, kMost) - 1);
  return {least, 2 * least};
}

int stay(Device& device, Context& context, const Options& options) {
  Stay(device, context, options).run();
  return context.output().finish();
}

}  // namespace kovadm::session
