// Measures all figures in time, or under valgrind's callgrind in instructions.
#include <alloca.h>
#include <benchmark/benchmark.h>
#include <sys/wait.h>
#include <unistd.h>
#include <valgrind/callgrind.h>

#include <set>
#include <string_view>
#include <vector>

#include "figures.hpp"
#include "seam/platform.hpp"

using namespace kova::bench;

namespace {

// The number that the next process has in a sandbox with processes of its own, where nothing else starts any.
pid_t next_process() {
  const pid_t child = fork();
  if (child == 0) _exit(0);
  waitpid(child, nullptr, 0);
  return child;
}

// What the store and the bus are asked.
class Questions final : public seam::Platform {
 public:
  int uci_load(uci_context* context, const char* name, uci_package** package) override {
    ++loads;
    return Platform::uci_load(context, name, package);
  }
  int ubus_invoke_fd(ubus_context* bus, uint32_t id, const char* method, blob_attr* message,
                     ubus_data_handler_t handler, void* context, int timeout, int file) override {
    ++calls;
    return Platform::ubus_invoke_fd(bus, id, method, message, handler, context, timeout, file);
  }

  int loads = 0;
  int calls = 0;
};

void count_questions(benchmark::State& state, const std::function<void()>& work) {
  Questions asked;
  const seam::InUse in_use(asked, seam::Calls::OF_PROCESS);
  const pid_t before = next_process();
  work();
  state.counters["processes"] = next_process() - before - 1;
  state.counters["loads"] = asked.loads;
  state.counters["bus_calls"] = asked.calls;
}

// The first time may take more than all others.
void time_of(benchmark::State& state, const std::function<void()>& work) {
  work();
  while (state.KeepRunning()) work();
  count_questions(state, work);
}

void count(const std::string& name, const std::function<void()>& work) {
  CALLGRIND_START_INSTRUMENTATION;
  work();
  CALLGRIND_STOP_INSTRUMENTATION;
  CALLGRIND_DUMP_STATS_AT(name.c_str());
}

// Several times, each with heap and stack somewhere else: handling texts costs more where a page ends.
void count(const Figure& figure) {
  constexpr int kTimes = 12;
  constexpr size_t kStep = 4096 / kTimes;
  std::vector<std::string> in_between;
  for (int i = 0; i < kTimes; ++i) {
    in_between.emplace_back(kStep, ' ');
    *static_cast<volatile char*>(alloca(kStep)) = ' ';
    count(figure.name + "/plug-in", figure.plugin);
    count(figure.name + "/platform", figure.platform);
  }
}

}  // namespace

// kova-bench [GOOGLE BENCHMARK'S OPTIONS]
// kova-bench --instructions FIGURE...: for valgrind --tool=callgrind --instr-atstart=no
int main(int argc, char** argv) {
  const bool counts = argc > 1 && std::string_view(argv[1]) == "--instructions";
  const std::set<std::string_view> counted(argv + 2, argv + argc);
  for (const Figure& figure : figures()) {
    if (!counts) {
      benchmark::RegisterBenchmark((figure.name + "/plug-in").c_str(), time_of, figure.plugin);
      benchmark::RegisterBenchmark((figure.name + "/platform").c_str(), time_of, figure.platform);
    } else if (counted.contains(figure.name)) {
      count(figure);
    }
  }
  if (counts) return 0;
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
}
