#include "commands/setting.hpp"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>

#include "device/plugin.hpp"

namespace kovadm {
namespace {

// The whole stream but a newline at its end.
std::string read_value(std::istream& stream, const std::string& name) {
  std::string value(std::istreambuf_iterator<char>(stream), {});
  if (value.ends_with('\n')) value.pop_back();
  if (value.find('\0') != std::string::npos) throw SetupError(name + " holds a zero byte, no value can");
  return value;
}

std::string read_standard_input() {
  if (std::cin.eof()) throw SetupError("standard input gives one value only");
  return read_value(std::cin, "standard input");
}

std::string read_file(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  stream.peek();  // a directory can be opened, but not read
  if (stream.bad() || !stream.is_open()) throw SetupError("cannot read " + file);
  return read_value(stream, file);
}

Setting read_setting(const std::string& text) {
  const std::size_t equals = text.find('=');
  if (equals == 0 || equals == std::string::npos) throw SetupError("not PATH=VALUE: " + text);
  return {text.substr(0, equals), given_value(text.substr(equals + 1))};
}

}  // namespace

// "@FILE" and "@-" stand for what is read there, "@@" for a value's own "@".
std::string given_value(const std::string& text) {
  if (!text.starts_with('@')) return text;
  if (text == "@-") return read_standard_input();
  return text.starts_with("@@") ? text.substr(1) : read_file(text.substr(1));
}

std::vector<Setting> read_settings(const std::vector<std::string>& texts) {
  std::vector<Setting> settings(texts.size());
  std::transform(texts.begin(), texts.end(), settings.begin(), read_setting);
  return settings;
}

}  // namespace kovadm
