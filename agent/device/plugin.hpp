// The data-model plug-in, loaded.
#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "pkg-tool.h"

namespace kovadm {

// Why the tool could not start its work.
class SetupError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

class Plugin {
 public:
  // Loads `file`; an empty one is looked for beside the program, in ../lib, and in /usr/lib. Throws SetupError.
  explicit Plugin(const std::string& file);

  const std::string& file() const { return file_; }

  // The exported handler; nullptr when the plug-in has none of that name.
  parameter_handler handler(const std::string& name) const;

  // Begins and ends one look; where an older plug-in has none, nothing happens.
  void begin_look() const;
  void end_look() const;

  // Writes an option of the router's store as handlers do. Whether it could.
  bool store(const char* package, const char* section, const char* option, const std::string& value) const;

 private:
  void call(const char* function) const;

  struct Closer {
    void operator()(void* library) const;
  };

  std::string file_;
  std::unique_ptr<void, Closer> library_;
};

}  // namespace kovadm
