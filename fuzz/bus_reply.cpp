// Status queries whose reply is the input.
#include <cstring>

#include "bus.hpp"
#include "input.hpp"
#include "pkg-tool.h"

using namespace kova::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static Bus bus;
  static const seam::InUse in_use(bus, seam::Calls::OF_PROCESS);
  bus.reply = Input(data, size).rest();
  for (uint32_t query = INTERFACE_UP; query <= DEVICE_BRIDGE_MEMBERS + 1; ++query) {
    for (const auto ask : {netif_get_interface_status, netif_get_device_status}) {
      for (const int32_t room : {64, 1}) {
        char output[65];
        memset(output, '#', sizeof output);
        require(ask("name", query, output, room) == 0);
        require(output[room] == '#' &&
                (memchr(output, '\0', 64) == nullptr || strlen(output) < static_cast<size_t>(room)));
      }
    }
  }
  return 0;
}
