// One line on the terminal that says what takes a while, and is gone when something is to be told. Nothing where
// standard error is no terminal, or one that cannot clear a line.
#pragma once

#include <string>

namespace kovadm {

class Progress {
 public:
  Progress();
  ~Progress() { clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void show(const std::string& text);
  void clear();

 private:
  bool possible_;
  bool shown_ = false;
};

}  // namespace kovadm
