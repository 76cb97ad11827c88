#include "answers.hpp"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <stdexcept>

extern "C" {
#include <libubus.h>
}

namespace lab {
namespace {

bool matches(const Json& when, const Json& request) {
  const auto members = when.items();
  return std::all_of(members.begin(), members.end(), [&](const auto& member) {
    return request.contains(member.key()) && request[member.key()] == member.value();
  });
}

// What a program prints, run with one argument. Not through popen: the lab's users watch that for the plug-in's sake.
std::string output_of(const std::string& program, const std::string& argument) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error(std::string("no pipe: ") + std::strerror(errno));
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  const char* const arguments[] = {program.c_str(), argument.c_str(), nullptr};
  pid_t child = 0;
  const int error =
      posix_spawn(&child, program.c_str(), &actions, nullptr, const_cast<char* const*>(arguments), environ);
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);
  std::string output;
  char block[4096];
  ssize_t length = 0;
  while (error == 0 && ((length = read(ends[0], block, sizeof block)) > 0 || (length < 0 && errno == EINTR)))
    output.append(block, static_cast<size_t>(std::max<ssize_t>(length, 0)));
  close(ends[0]);
  if (error != 0) throw std::runtime_error("cannot run " + program + ": " + std::strerror(error));
  while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) continue;
  return output;
}

BusAnswer answer_of(const Json& entry, const Json& request) {
  if (entry.contains("status")) return {entry["status"].get<int>(), {}};
  if (entry.contains("reply")) return {UBUS_STATUS_OK, {entry["reply"]}};
  if (entry.contains("replies")) return {UBUS_STATUS_OK, {entry["replies"].begin(), entry["replies"].end()}};
  if (entry.contains("script")) {
    const std::string output = output_of(entry["script"].get<std::string>(), request.dump());
    if (output.empty()) return {UBUS_STATUS_OK, {}};
    return {UBUS_STATUS_OK, {Json::parse(output)}};
  }
  if (entry.contains("when")) return {UBUS_STATUS_OK, {}};
  return {UBUS_STATUS_OK, {entry}};
}

}  // namespace

std::optional<std::vector<std::string>> bus_objects() {
  std::vector<std::string> names;
  std::error_code fault;
  const std::filesystem::directory_iterator end;
  for (std::filesystem::directory_iterator entry(kBusDirectory, fault); entry != end; entry.increment(fault)) {
    std::error_code unknown;
    if (entry->is_directory(unknown)) names.push_back(entry->path().filename());
  }
  if (fault) return std::nullopt;
  std::sort(names.begin(), names.end());
  return names;
}

BusAnswer bus_answer(const std::string& object, const std::string& method, const Json& request) {
  std::ifstream file(std::filesystem::path(kBusDirectory) / object / (method + ".json"));
  if (!file) return {UBUS_STATUS_METHOD_NOT_FOUND, {}};
  const Json content = Json::parse(file);
  if (!content.is_array()) {
    const bool other = content.contains("when") && !matches(content["when"], request);
    return other ? BusAnswer{UBUS_STATUS_NOT_FOUND, {}} : answer_of(content, request);
  }
  for (const Json& entry : content) {
    if (!entry.contains("when") || matches(entry["when"], request)) return answer_of(entry, request);
  }
  return {UBUS_STATUS_NOT_FOUND, {}};
}

}  // namespace lab
