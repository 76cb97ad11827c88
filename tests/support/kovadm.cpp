#include "support/kovadm.hpp"

#include <sys/wait.h>

#include <regex>
#include <sstream>

namespace kova::test {
namespace {

// The text without blanks at the ends of its lines, which documents do without, and without times and the numbers of
// lines of the sources.
std::string comparable(const std::string& text) {
  static const std::regex other(R"( +(?=\n)|(\.cpp:|\.c, )[1-9][0-9]*|20[0-9]{2}-[0-9-]+[ T][0-9:]+|[0-9]+(?= ms))");
  return std::regex_replace(text, other, "$1");
}

}  // namespace

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

void expect_examples_of(const std::string& file, int least) {
  std::istringstream page(*contents(file));
  const std::string indent = "    ";
  const std::string prompt = indent + "$ ";
  int examples = 0;
  for (std::string line; std::getline(page, line);) {
    if (!line.starts_with(prompt)) continue;
    ASSERT_EQ(run("/sbin/lab-reset"), 0);
    const std::string command = line.substr(prompt.size());
    std::string shown;
    while (std::getline(page, line) && line.starts_with(indent)) shown += line.substr(indent.size()) + "\n";
    run(command + " >/root/out 2>&1");
    EXPECT_EQ(comparable(*contents("/root/out")), comparable(shown)) << command;
    ++examples;
  }
  EXPECT_GE(examples, least) << file;
}

void Kovadm::SetUp() {
  DeviceTest::SetUp();
  run("rm /tmp/cwmp_debug");
}

}  // namespace kova::test
