// Locked files.
#pragma once

#include <string>

namespace standin {

// An open file under a lock (LOCK_SH or LOCK_EX), or none when it cannot be opened. Its functions throw
// Failure(UCI_ERR_IO).
class File {
 public:
  File(const std::string& path, int flags, int lock);
  ~File();
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  explicit operator bool() const { return descriptor_ >= 0; }

  std::string read_all() const;
  void write_all(const std::string& text) const;
  void write_what_fits(const std::string& text) const;
  void truncate() const;

  // Replaces the file at `path`, which is this one, by way of a temporary one beside it: a reader or a power cut never
  // meets half of it. Of what has no room the beginning is written, and nobody is told: as by the real library.
  void replace(const std::string& path, const std::string& text) const;

 private:
  bool is_at(const std::string& path) const;

  int descriptor_ = -1;
};

}  // namespace standin
