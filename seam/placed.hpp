// A platform whose router's files lie below a directory of this machine. libuci is told so, and finds its files itself.
#pragma once

#include "seam/paths.hpp"
#include "seam/platform.hpp"

namespace seam {

class Placed : public Platform {
 public:
  explicit Placed(std::string directory) : directory_(std::move(directory)) {}

  std::string place(const std::string& path) const override { return directory_ + path; }

#define KOVA_CALL(...)
#define KOVA_PATH_CALL(type, name, parameters, arguments, ...) \
  type name parameters override {                              \
    const std::string placed = place(path);                    \
    path = placed.c_str();                                     \
    return Platform::name arguments;                           \
  }
#include "seam/functions.h"

  int rename(const char* from, const char* to) override {
    return Platform::rename(place(from).c_str(), place(to).c_str());
  }
  uci_context* uci_alloc_context() override {
    uci_context* context = Platform::uci_alloc_context();
    if (context == nullptr) return nullptr;
    leave_usual_changes(context);
    uci_set_confdir(context, kMainStore);
    uci_set_savedir(context, kPendingChanges);
    return context;
  }
  int uci_set_confdir(uci_context* context, const char* directory) override {
    return Platform::uci_set_confdir(context, place(directory).c_str());
  }
  int uci_set_savedir(uci_context* context, const char* directory) override {
    return Platform::uci_set_savedir(context, place(directory).c_str());
  }

 private:
  std::string directory_;
};

}  // namespace seam
