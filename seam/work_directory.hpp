// A directory of this run's own, for the router's files; gone with the run, however that ends.
#pragma once

#include <sys/types.h>

#include <string>

namespace seam {

// A new directory below that for temporary files, for nobody else to read. Throws std::system_error.
std::string make_temporary_directory();
// Throws where there could be none.
void expect_temporary_directories();

class WorkDirectory {
 public:
  WorkDirectory();
  ~WorkDirectory();
  WorkDirectory(const WorkDirectory&) = delete;
  WorkDirectory& operator=(const WorkDirectory&) = delete;

  const std::string& path() const { return path_; }

 private:
  std::string path_;
  int alive_ = -1;  // while this end of a pipe is open, so is the run
  pid_t remover_ = -1;
};

}  // namespace seam
