#include "file.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "model.hpp"

namespace standin {
namespace {

// What a signal interrupts is done again.
template <typename Call>
auto persistent(Call call) {
  decltype(call()) result = 0;
  do result = call();
  while (result < 0 && errno == EINTR);
  return result;
}

}  // namespace

// While it waits for the lock, the holder may have put another file in the place of this one.
File::File(const std::string& path, int flags, int lock) {
  do {
    if (descriptor_ >= 0) close(descriptor_);
    descriptor_ = open(path.c_str(), flags | O_CLOEXEC, 0600);
  } while (descriptor_ >= 0 && persistent([&] { return flock(descriptor_, lock); }) == 0 && !is_at(path));
}

File::~File() {
  if (descriptor_ >= 0) close(descriptor_);
}

bool File::is_at(const std::string& path) const {
  struct stat here = {};
  struct stat there = {};
  if (fstat(descriptor_, &here) != 0 || stat(path.c_str(), &there) != 0) return false;
  return here.st_dev == there.st_dev && here.st_ino == there.st_ino;
}

std::string File::read_all() const {
  std::string text;
  char block[4096];
  ssize_t length = 0;
  while ((length = persistent([&] { return read(descriptor_, block, sizeof block); })) > 0)
    text.append(block, static_cast<size_t>(length));
  require(length == 0, UCI_ERR_IO);
  return text;
}

void File::write_all(const std::string& text) const {
  for (size_t done = 0; done < text.size();) {
    const ssize_t length = persistent([&] { return write(descriptor_, text.data() + done, text.size() - done); });
    require(length > 0, UCI_ERR_IO);
    done += static_cast<size_t>(length);
  }
}

void File::write_what_fits(const std::string& text) const try { write_all(text); } catch (const Failure&) {
}

void File::truncate() const { require(ftruncate(descriptor_, 0) == 0, UCI_ERR_IO); }

void File::replace(const std::string& path, const std::string& text) const {
  struct stat status = {};
  require(fstat(descriptor_, &status) == 0, UCI_ERR_IO);
  const size_t slash = path.rfind('/');
  const std::string temporary = path.substr(0, slash) + "/." + path.substr(slash + 1) + ".uci-new";
  unlink(temporary.c_str());
  try {
    const File file(temporary, O_WRONLY | O_CREAT | O_EXCL, LOCK_EX);
    require(static_cast<bool>(file), UCI_ERR_IO);
    file.write_what_fits(text);
    fsync(file.descriptor_);
    require(fchmod(file.descriptor_, status.st_mode & 07777) == 0, UCI_ERR_IO);
    require(rename(temporary.c_str(), path.c_str()) == 0, UCI_ERR_IO);
  } catch (const Failure&) {
    unlink(temporary.c_str());
    throw;
  }
}

}  // namespace standin
