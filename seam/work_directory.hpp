// A directory of this run's own, for the router's files; gone with the run, however that ends.
#pragma once

#include <sys/types.h>

#include <string>

namespace seam {

class WorkDirectory {
 public:
  // Below the directory for temporary files, for nobody else to read. Throws std::system_error.
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
