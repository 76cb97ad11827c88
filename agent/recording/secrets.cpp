#include "recording/secrets.hpp"

#include <algorithm>

#include "recording/uci_text.hpp"
#include "seam/paths.hpp"

namespace kovadm {
namespace {

using Json = nlohmann::ordered_json;

// "/etc/config/network" is "network", as paths of options have it.
std::string package_of(const std::string& file) {
  return file.starts_with(seam::kMainStore) ? file.substr(sizeof seam::kMainStore) : file;
}

// "PACKAGE.SECTION.OPTION" as package and option; the package may be a file's path.
std::pair<std::string, std::string> package_and_option(const std::string& path) {
  const std::size_t option = path.rfind('.');
  const std::size_t section = option == std::string::npos || option == 0 ? option : path.rfind('.', option - 1);
  if (section == std::string::npos) return {path, ""};
  return {path.substr(0, section), path.substr(option + 1)};
}

}  // namespace

void Secrets::note(const seam::Trace& trace, const std::string& value) {
  if (value.empty()) return;
  for (const seam::LookUp& look_up : trace.look_ups) {
    if (look_up.value == value) options_.insert(package_and_option(look_up.path));
  }
  for (const std::string& command : trace.commands) outputs_[command].insert(value);
  values_.insert(value);
}

bool Secrets::is_secret_option(const std::string& package, const std::string& option, const std::string& value) const {
  if (value.empty() || value == kSecretMark) return false;
  if (is_secret_name(option) || options_.contains({package, option})) return true;
  return std::any_of(values_.begin(), values_.end(), [&](const std::string& secret) {
    return secret.size() >= kTellingLength && value.find(secret) != std::string::npos;
  });
}

std::string Secrets::without_options(const std::string& package, const std::string& text,
                                     std::set<std::string>& replaced) {
  return replace_option_values(text, [&](const std::string& option, const std::string& value) {
    if (!is_secret_option(package, option, value)) return std::optional<std::string>();
    replaced.insert(std::string("option ").append(option).append(" of ").append(package));
    values_.insert(value);
    return std::optional<std::string>(kSecretMark);
  });
}

std::string Secrets::without_values(std::string text, const std::string& source,
                                    std::set<std::string>& replaced) const {
  bool found = false;
  for (const std::string& value : values_) {
    if (value.size() >= kTellingLength) found |= replace_secret(text, value);
  }
  if (found) replaced.insert(source);
  return text;
}

void Secrets::replace_in_reply(Json& value, const std::string& call, std::set<std::string>& replaced) const {
  if (value.is_string()) value = without_values(value.get<std::string>(), call, replaced);
  if (!value.is_structured()) return;
  for (const auto& [name, inner] : value.items()) {
    if (inner.is_string() && !inner.get_ref<const std::string&>().empty() && is_secret_name(name)) {
      inner = kSecretMark;
      replaced.insert(std::string("field ").append(name).append(" of ").append(call));
    } else {
      replace_in_reply(inner, call, replaced);
    }
  }
}

// State files need not have the form of packages.
std::string Secrets::without_secrets(const std::string& path, const std::string& text,
                                     std::set<std::string>& replaced) {
  const std::string rest = without_options(package_of(path), text, replaced);
  return path.starts_with("/tmp/") ? without_values(rest, "file " + path, replaced) : rest;
}

std::set<std::string> Secrets::replace_in(Recording& recording) {
  std::set<std::string> replaced;
  // Twice: values that are found by their names may stand elsewhere, too.
  for (int time = 0; time < 2; ++time) {
    for (auto& [directory, files] : recording.directories) {
      for (auto& [name, text] : files) text = without_secrets(file_in(directory, name), text, replaced);
    }
    for (auto& [command, answer] : recording.commands) {
      for (auto& [path, text] : answer.changed) {
        if (text) text = without_secrets(path, *text, replaced);
      }
    }
  }
  for (auto& [command, answer] : recording.commands) {
    bool found = false;
    for (const std::string& value : outputs_[command]) found |= replace_secret(answer.output, value);
    if (found) replaced.insert("command " + command);
    answer.output = without_values(answer.output, "command " + command, replaced);
    answer.errors = without_values(answer.errors, "command " + command, replaced);
  }
  for (auto& [path, text] : recording.files) {
    if (text) text = without_values(*text, "file " + path, replaced);
  }
  for (auto& [call, answer] : recording.bus) {
    for (Json& reply : answer.replies) replace_in_reply(reply, call, replaced);
  }
  for (const auto& [field, value] : recording.agent.items()) {
    if (!is_secret_name(field) || !value.is_string() || value.get<std::string>().empty()) continue;
    value = kSecretMark;
    replaced.insert(std::string("field ").append(field).append(" of the agent's record"));
  }
  recording.with_secrets = false;
  return replaced;
}

}  // namespace kovadm
