#include <map>

#include "model/catalogue.hpp"

namespace kovadm {

std::string definition_of(const std::string& handler) {
  static const std::map<std::string, const char*> definitions = {
#include "definitions.inc"
  };
  const auto found = definitions.find(handler);
  return found != definitions.end() ? found->second : "";
}

}  // namespace kovadm
