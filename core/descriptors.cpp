#include "descriptors.hpp"

#include <fcntl.h>
#include <unistd.h>

namespace kova {

StandardDescriptors::StandardDescriptors() {
  for (int number = 0; number < kCount; ++number) {
    if (fcntl(number, F_GETFD) != -1) continue;
    const int opened = open("/dev/null", O_RDWR);  // the lowest number that is free
    filled_[number] = opened == number;
    if (opened != number && opened != -1) close(opened);
  }
}

StandardDescriptors::~StandardDescriptors() {
  for (int number = 0; number < kCount; ++number) {
    if (filled_[number]) close(number);
  }
}

}  // namespace kova
