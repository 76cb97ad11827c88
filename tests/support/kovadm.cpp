#include "support/kovadm.hpp"

#include <sys/wait.h>

#include <sstream>

namespace kova::test {

std::vector<std::string> Finished::lines() const {
  std::vector<std::string> lines;
  std::istringstream stream(out);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

Finished kovadm(const std::string& arguments) {
  const int status = run("kovadm " + arguments + " >/root/out 2>/root/error </dev/null");
  return {WEXITSTATUS(status), contents("/root/out").value_or(""), contents("/root/error").value_or("")};
}

void script_is(const std::string& path, const std::string& text) {
  write_file(path, "#!/bin/sh\n" + text + "\n");
  run("chmod 755 " + path);
}

void Kovadm::SetUp() {
  DeviceTest::SetUp();
  run("rm /tmp/cwmp_debug");
}

}  // namespace kova::test
