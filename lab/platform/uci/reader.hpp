// The words of configuration and delta files.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace standin {

// Splits a text into commands, one a line, of words. A word is made of bare, single-quoted and double-quoted pieces. A
// semicolon ends the command; what follows on its line is left out, as the real library does.
class Reader {
 public:
  explicit Reader(const std::string& text) : text_(text) {}

  // The next command's words; nullopt at the end. A command is never empty. Throws Failure(UCI_ERR_PARSE).
  std::optional<std::vector<std::string>> next();

  // Throws Failure(UCI_ERR_PARSE) for the command just read: at its first word, or behind it.
  [[noreturn]] void fail_at_word(const std::string& reason) const;
  [[noreturn]] void fail_behind(const std::string& reason) const;

 private:
  bool at_end() const { return position_ >= text_.size(); }
  char peek() const { return text_[position_]; }
  bool at_blank() const;
  char take();
  void skip_line();

  std::vector<std::string> read_command();
  std::string read_word();
  void read_quoted(char quote, std::string& word);
  void read_escaped(std::string& word);

  const std::string& text_;
  size_t position_ = 0;
  size_t line_ = 1;
  size_t line_start_ = 0;
  size_t byte_before_newline_ = 0;
  size_t command_line_ = 1;
  size_t command_byte_ = 0;
  size_t end_byte_ = 0;
};

}  // namespace standin
