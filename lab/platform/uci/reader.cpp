#include "reader.hpp"

#include <string_view>

#include "model.hpp"

namespace standin {
namespace {

[[noreturn]] void fail(const std::string& reason, size_t line, size_t byte) {
  throw Failure{UCI_ERR_PARSE, "(" + reason + ") at line " + std::to_string(line) + ", byte " + std::to_string(byte)};
}

}  // namespace

std::optional<std::vector<std::string>> Reader::next() {
  while (!at_end()) {
    std::vector<std::string> words = read_command();
    if (!words.empty()) return words;
  }
  return std::nullopt;
}

void Reader::fail_at_word(const std::string& reason) const { fail(reason, command_line_, command_byte_); }

void Reader::fail_behind(const std::string& reason) const { fail(reason, command_line_, end_byte_); }

bool Reader::at_blank() const { return std::string_view(" \t\r\f\v").find(peek()) != std::string_view::npos; }

char Reader::take() {
  const char c = text_[position_++];
  if (c == '\n') {
    byte_before_newline_ = position_ - line_start_;
    ++line_;
    line_start_ = position_;
  }
  return c;
}

void Reader::skip_line() {
  while (!at_end() && peek() != '\n') take();
}

std::vector<std::string> Reader::read_command() {
  std::vector<std::string> words;
  for (;;) {
    while (!at_end() && at_blank()) take();
    if (at_end()) break;
    if (peek() == '#' || peek() == ';') {
      skip_line();
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

std::string Reader::read_word() {
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

void Reader::read_quoted(char quote, std::string& word) {
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
void Reader::read_escaped(std::string& word) {
  if (at_end()) return;
  const char c = take();
  if (c != '\n') word += c;
}

}  // namespace standin
