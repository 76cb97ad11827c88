#include "device/agent.hpp"

#include <sys/mman.h>

#include <cerrno>
#include <system_error>

#include "seam/handler.hpp"
#include "seam/platform.hpp"

namespace kovadm {
namespace {

// Room for a value. Handlers are not told its size, so it is larger than any value that a store takes, of which only
// what is used takes memory; and one that is larger still ends the program at the page behind instead of spoiling it.
class ValueBuffer {
 public:
  ValueBuffer() {
    if (start_ == MAP_FAILED || mprotect(start_, kSize, PROT_READ | PROT_WRITE) != 0)
      throw std::system_error(errno, std::generic_category(), "room for a value");
  }
  ~ValueBuffer() { munmap(start_, kSize + kGuard); }
  ValueBuffer(const ValueBuffer&) = delete;
  ValueBuffer& operator=(const ValueBuffer&) = delete;

  char* data() { return static_cast<char*>(start_); }

 private:
  static constexpr std::size_t kSize = 16UL * 1024 * 1024;
  static constexpr std::size_t kGuard = 64UL * 1024;  // a page, however large
  void* start_ = mmap(nullptr, kSize + kGuard, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
};

constexpr std::size_t kPadding = 4;

Fault missing_handler(const Plugin& plugin, const Parameter& parameter) {
  return {FaultCode::INTERNAL_ERROR, parameter.path, plugin.file() + " has no handler " + parameter.row->handler, ""};
}

// Warns of packages that are there and cannot be parsed: handlers read them as empty.
class BrokenPackages final : public seam::Platform {
 public:
  explicit BrokenPackages(const Agent& agent) : agent_(agent) {}

  int uci_load(uci_context* context, const char* name, uci_package** package) override {
    const int result = Platform::uci_load(context, name, package);
    if (result == UCI_ERR_PARSE) agent_.warn(std::string(name) + ": cannot be parsed, and reads as empty");
    return result;
  }

 private:
  const Agent& agent_;
};

}  // namespace

std::vector<int32_t> instance_array(const Parameter& parameter) {
  std::vector<int32_t> numbers = parameter.instances;
  numbers.resize(numbers.size() + kPadding);
  return numbers;
}

std::variant<std::string, Fault> Agent::get(const Parameter& parameter) {
  parameter_handler handler = plugin_.handler(parameter.row->handler);
  if (handler == nullptr) return missing_handler(plugin_, parameter);
  std::vector<int32_t> instances = instance_array(parameter);  // which a handler may rewrite
  ValueBuffer output;
  BrokenPackages broken(*this);
  const seam::InUse in_use(broken);
  if (seam::get(handler, instances.data(), output.data(), record_.get()) != 0)
    return Fault{FaultCode::INTERNAL_ERROR, parameter.path, "the handler failed", ""};
  return std::string(output.data());
}

std::optional<Fault> Agent::set(const Parameter& parameter, const std::string& value, uint32_t& mask) {
  parameter_handler handler = plugin_.handler(parameter.row->handler);
  if (handler == nullptr) return missing_handler(plugin_, parameter);
  std::vector<int32_t> instances = instance_array(parameter);  // which a handler may rewrite
  BrokenPackages broken(*this);
  const seam::InUse in_use(broken);
  if (seam::set(handler, instances.data(), value.c_str(), &mask) == 0) return std::nullopt;
  return Fault{FaultCode::INVALID_PARAMETER_VALUE, parameter.path, "refused \"" + value + '"', ""};
}

}  // namespace kovadm
