#include "file.hpp"

#include <errno.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include "text.hpp"

namespace kova {
namespace {

bool write_text(FILE* file, const char* text) {
  const size_t length = strlen(text);
  return fwrite(text, 1, length, file) == length;
}

// Whether a file, just opened, ends within a line.
bool ends_within_a_line(FILE* file) {
  const bool within = fseek(file, -1, SEEK_END) == 0 && getc(file) != '\n';
  fseek(file, 0, SEEK_END);  // a stream wants it between reading and writing
  return within;
}

}  // namespace

Left replace_file(const char* path, const char* text, const char* end) {
  Text<128> beside;
  beside.print("%s.new", path);
  File file(beside.c_str(), "we");
  if (!file) return Left::NOT_OPENED;
  const bool written = write_text(file.get(), text) && write_text(file.get(), end);
  if (file.close() && written && rename(beside.c_str(), path) == 0) return Left::DONE;
  unlink(beside.c_str());
  return Left::NOT_WRITTEN;
}

Left append_line(const char* path, const char* line) {
  File file(path, "a+e");
  if (!file) return Left::NOT_OPENED;
  struct stat before;
  if (fstat(fileno(file.get()), &before) != 0) return Left::NOT_WRITTEN;
  setvbuf(file.get(), nullptr, _IONBF, 0);  // a buffer would write what is left in it once more, when it is closed
  const bool within = ends_within_a_line(file.get());
  const bool written =
      (!within || write_text(file.get(), "\n")) && write_text(file.get(), line) && write_text(file.get(), "\n");
  if (!written && ftruncate(fileno(file.get()), before.st_size) != 0) return Left::NOT_WRITTEN;
  return file.close() && written ? Left::DONE : Left::NOT_WRITTEN;
}

}  // namespace kova
