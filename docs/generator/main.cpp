// kova-documents: writes one of the generated documents to standard output. It sets every parameter, so it runs on the
// simulated router only.
#include <exception>
#include <filesystem>
#include <iostream>
#include <string_view>

#include "documents.hpp"

int main(int argc, char** argv) try {
  using namespace kova::documents;
  const std::string_view document = argc == 2 ? argv[1] : "";
  if (!std::filesystem::exists("/sbin/lab-reset")) throw std::runtime_error("runs on the simulated router only");
  if (document == "parameters") return write_parameters(std::cout), std::cout.flush() ? 0 : 1;
  if (document == "security") return write_security(std::cout), std::cout.flush() ? 0 : 1;
  std::cerr << "usage: kova-documents parameters|security\n";
  return 2;
} catch (const std::exception& error) {
  std::cerr << "kova-documents: " << error.what() << '\n';
  return 1;
}
