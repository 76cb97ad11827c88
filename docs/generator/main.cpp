// kova-documents DIRECTORY: writes the generated documents there. It sets every parameter, so it runs on the simulated
// router only. Ends with 77 on one that lacks what the documents tell of.
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "documents.hpp"

namespace {

void write(const std::string& file, void (*document)(std::ostream&)) {
  std::ofstream out(file);
  document(out);
  if (!out.flush()) throw std::runtime_error("cannot write " + file);
}

bool has_all_hardware() {
  std::ifstream interfaces("/proc/net/dev");
  const std::string text(std::istreambuf_iterator<char>(interfaces), {});
  return text.find("br-lan:") != std::string::npos && std::filesystem::exists("/sys/class/leds/power/brightness");
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc != 2 || !std::filesystem::exists("/sbin/lab-reset")) {
    std::cerr << "usage, on the simulated router: kova-documents DIRECTORY\n";
    return 2;
  }
  if (!has_all_hardware()) {
    std::cerr << "kova-documents: this simulated router has no interfaces or no lights, see lab/README.md\n";
    return 77;
  }
  write(std::string(argv[1]) + "/parameters.md", kova::documents::write_parameters);
  write(std::string(argv[1]) + "/set-commands.tsv", kova::documents::write_set_commands);
  write(std::string(argv[1]) + "/invalid-values.md", kova::documents::write_invalid_values);
  write(std::string(argv[1]) + "/security.md", kova::documents::write_security);
  write(std::string(argv[1]) + "/shell-ways.tsv", kova::documents::write_shell_ways);
  return 0;
} catch (const std::exception& error) {
  std::cerr << "kova-documents: " << error.what() << '\n';
  return 1;
}
