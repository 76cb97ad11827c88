#include "parse.hpp"

#include <cstring>
#include <optional>
#include <string_view>

namespace standin {
namespace {

// Splits a text into commands, one a line, of words. A word is made of bare, single-quoted and double-quoted pieces. A
// semicolon ends the command; what follows on its line is left out, as the real library does.
class Reader {
 public:
  explicit Reader(const std::string& text) : text_(text) {}

  // The next command's words; nullopt at the end. A command is never empty.
  std::optional<std::vector<std::string>> next() {
    while (!at_end()) {
      std::vector<std::string> words = read_command();
      if (!words.empty()) return words;
    }
    return std::nullopt;
  }

  // Throws what is wrong with the command just read: at its first word, or behind it.
  [[noreturn]] void fail_at_word(const std::string& reason) const { fail(reason, command_line_, command_byte_); }
  [[noreturn]] void fail_behind(const std::string& reason) const { fail(reason, command_line_, end_byte_); }

 private:
  bool at_end() const { return position_ >= text_.size(); }
  char peek() const { return text_[position_]; }
  bool at_blank() const { return peek() != '\n' && std::strchr(" \t\r\f\v", peek()) != nullptr && peek() != '\0'; }

  char take() {
    const char c = text_[position_++];
    if (c == '\n') {
      byte_before_newline_ = position_ - line_start_;
      ++line_;
      line_start_ = position_;
    }
    return c;
  }

  [[noreturn]] static void fail(const std::string& reason, size_t line, size_t byte) {
    throw Failure{UCI_ERR_PARSE, "(" + reason + ") at line " + std::to_string(line) + ", byte " + std::to_string(byte)};
  }

  std::vector<std::string> read_command() {
    std::vector<std::string> words;
    for (;;) {
      while (!at_end() && at_blank()) take();
      if (at_end()) break;
      if (peek() == '#' || peek() == ';') {
        while (!at_end() && peek() != '\n') take();
        continue;
      }
      if (peek() == '\n') {
        take();
        end_byte_ = byte_before_newline_;
        return words;
      }
      if (words.empty()) {
        command_line_ = line_;
        command_byte_ = position_ - line_start_;
      }
      words.push_back(read_word());
    }
    end_byte_ = position_ - line_start_;
    return words;
  }

  std::string read_word() {
    std::string word;
    while (!at_end() && !at_blank() && peek() != '\n' && peek() != ';') {
      const char c = take();
      if (c == '\'' || c == '"') {
        read_quoted(c, word);
      } else if (c == '\\') {
        read_escaped(word);
      } else {
        word += c;
      }
    }
    return word;
  }

  void read_quoted(char quote, std::string& word) {
    while (!at_end()) {
      const char c = take();
      if (c == quote) return;
      if (c == '\\' && quote == '"') {
        read_escaped(word);
      } else {
        word += c;
      }
    }
    // The line of the last text that was read.
    const bool behind_newline = position_ == line_start_ && line_ > 1;
    fail(std::string("EOF with unterminated ") + quote, behind_newline ? line_ - 1 : line_,
         behind_newline ? byte_before_newline_ : position_ - line_start_);
  }

  // A backslash before a line's end joins the lines.
  void read_escaped(std::string& word) {
    if (at_end()) return;
    const char c = take();
    if (c != '\n') word += c;
  }

  const std::string& text_;
  size_t position_ = 0;
  size_t line_ = 1;
  size_t line_start_ = 0;
  size_t byte_before_newline_ = 0;
  size_t command_line_ = 1;
  size_t command_byte_ = 0;
  size_t end_byte_ = 0;
};

uci_section* read_section(Package& package, const Reader& reader, const std::vector<std::string>& words) {
  if (words.size() < 2) reader.fail_behind("insufficient arguments");
  if (words.size() > 3) reader.fail_behind("too many arguments");
  if (!is_type(words[1])) reader.fail_behind("invalid character in type field");
  const std::string name = words.size() == 3 ? words[2] : "";
  if (name.empty()) return add_section(package, words[1], "");
  if (!is_name(name)) reader.fail_behind("invalid character in name field");
  uci_element* same = find(package.sections, name);
  if (same == nullptr) return add_section(package, words[1], name);
  assign(uci_to_section(same)->type, words[1]);
  return uci_to_section(same);
}

void read_option(uci_section* section, const Reader& reader, const std::vector<std::string>& words) {
  if (section == nullptr) reader.fail_at_word("option/list command found before the first section");
  if (words.size() < 2) reader.fail_behind("insufficient arguments");
  if (words.size() > 3) reader.fail_behind("too many arguments");
  if (!is_name(words[1])) reader.fail_behind("invalid character in name field");
  const std::string value = words.size() == 3 ? words[2] : "";
  if (words[0] == "list") {
    add_to_list(*section, words[1], value);
  } else if (!value.empty()) {
    set_string(*section, words[1], value);
  } else if (uci_element* earlier = find(section->options, words[1])) {
    free_option(uci_to_option(earlier));
  }
}

std::string quoted(std::string_view text) {
  std::string result(1, '\'');
  for (const char c : text) {
    if (c == '\'') {
      result += "'\\''";
    } else {
      result += c;
    }
  }
  result += '\'';
  return result;
}

std::string format_option(uci_option* option) {
  const std::string name = option->e.name;
  if (option->type == UCI_TYPE_STRING) return "\toption " + name + " " + quoted(option->v.string) + "\n";
  std::string lines;
  uci_element* item = nullptr;
  uci_foreach_element(&option->v.list, item) lines += "\tlist " + name + " " + quoted(item->name) + "\n";
  return lines;
}

std::optional<Change> read_change(std::string word) {
  Change change{Change::SET, {}, {}, {}};
  if (!word.empty() && std::strchr("-+@|~", word[0]) != nullptr) {
    change.kind = static_cast<Change::Kind>(word[0]);
    word.erase(0, 1);
  }
  const size_t equals = word.find('=');
  const std::string path = word.substr(0, equals);
  if (equals != std::string::npos) change.value = word.substr(equals + 1);
  const size_t first = path.find('.');
  if (first == std::string::npos) return std::nullopt;
  const size_t second = path.find('.', first + 1);
  change.section = path.substr(first + 1, second == std::string::npos ? second : second - first - 1);
  if (second != std::string::npos) change.option = path.substr(second + 1);
  return change;
}

}  // namespace

void parse_package(Package& package, const std::string& text) {
  Reader reader(text);
  uci_section* section = nullptr;
  while (const auto words = reader.next()) {
    const std::string& command = words->front();
    if (command == "config") {
      section = read_section(package, reader, *words);
    } else if (command == "option" || command == "list") {
      read_option(section, reader, *words);
    } else if (command != "package") {
      reader.fail_at_word("invalid command");
    }
  }
}

std::string format_package(const uci_package& package) {
  std::string text;
  uci_element* element = nullptr;
  uci_foreach_element(&package.sections, element) {
    const uci_section* section = uci_to_section(element);
    text += std::string("\nconfig ") + section->type;
    if (!section->anonymous) text += " " + quoted(section->e.name);
    text += "\n";
    uci_element* option = nullptr;
    uci_foreach_element(&section->options, option) text += format_option(uci_to_option(option));
  }
  return text + "\n";
}

std::vector<Change> parse_delta(const std::string& text) {
  std::vector<Change> changes;
  Reader reader(text);
  while (const auto words = reader.next()) {
    if (const auto change = read_change(words->front())) changes.push_back(*change);
  }
  return changes;
}

std::string format_change(const std::string& package, const Change& change) {
  std::string line = change.kind == Change::SET ? "" : std::string(1, static_cast<char>(change.kind));
  line += package + "." + change.section;
  if (!change.option.empty()) line += "." + change.option;
  const bool bare = change.kind == Change::REMOVE && change.value.empty();
  return bare ? line + "\n" : line + "=" + quoted(change.value) + "\n";
}

}  // namespace standin
