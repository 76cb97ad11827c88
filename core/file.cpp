#include "file.hpp"

#include <errno.h>

namespace kova {

bool read_line(FILE* file, std::span<char> line) {
  size_t length = 0;
  while (length + 1 < line.size() && (length == 0 || line[length - 1] != '\n')) {
    const int c = getc(file);
    if (c != EOF) {
      line[length++] = static_cast<char>(c);
    } else if (ferror(file) != 0 && errno == EINTR) {
      clearerr(file);  // an agent's handler of some signal; nothing is lost
    } else if (ferror(file) != 0 || length == 0) {
      return false;
    } else {
      break;
    }
  }
  line[length] = '\0';
  return true;
}

}  // namespace kova
