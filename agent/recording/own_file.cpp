#include "recording/own_file.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "device/plugin.hpp"

namespace kovadm {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const std::string& path) { throw std::system_error(errno, std::generic_category(), path); }

// A new file beside another; gone unless it gets that one's name.
class FileBeside {
 public:
  explicit FileBeside(const std::string& path)
      : path_(path), name_(path + ".XXXXXX"), descriptor_(mkostemp(name_.data(), O_CLOEXEC)) {
    if (descriptor_ < 0) fail(path_);
  }
  ~FileBeside() {
    close(descriptor_);
    if (!renamed_) unlink(name_.c_str());
  }
  FileBeside(const FileBeside&) = delete;
  FileBeside& operator=(const FileBeside&) = delete;

  void write(const std::string& text) const {
    for (std::size_t written = 0; written < text.size();) {
      const ssize_t length = ::write(descriptor_, text.data() + written, text.size() - written);
      if (length < 0) fail(path_);
      written += static_cast<std::size_t>(length);
    }
    if (fsync(descriptor_) != 0) fail(path_);
  }

  void take_place() {
    renamed_ = rename(name_.c_str(), path_.c_str()) == 0;
    if (!renamed_) fail(path_);
  }

 private:
  std::string path_;
  std::string name_;
  int descriptor_;
  bool renamed_ = false;
};

}  // namespace

void expect_to_write(const std::string& path) {
  if (path.empty()) throw SetupError("a file needs a name");
  std::error_code missing;
  const fs::file_status there = fs::symlink_status(path, missing);
  if (fs::is_symlink(there)) throw SetupError(path + " is a link: name the file itself");
  if (fs::exists(there) && !fs::is_regular_file(there)) throw SetupError(path + " is no plain file: name another one");
  const fs::path directory = fs::absolute(path).parent_path();
  if (access(directory.c_str(), W_OK | X_OK) != 0) fail(path);
  if (fs::exists(there) && access(path.c_str(), W_OK) != 0) fail(path);
}

void write_own_file(const std::string& path, const std::string& text) {
  FileBeside file(path);
  file.write(text);
  file.take_place();
}

}  // namespace kovadm
