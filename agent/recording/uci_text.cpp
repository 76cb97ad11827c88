#include "recording/uci_text.hpp"

#include <algorithm>
#include <string_view>

namespace kovadm {
namespace {

struct Word {
  std::size_t start = 0;
  std::size_t end = 0;
  std::string value;  // without quotes
};

class Replacement {
 public:
  Replacement(const std::string& text, const NewValue& new_value) : text_(text), new_value_(new_value) {}

  std::string run() {
    while (next_statement()) statement();
    return result_ + text_.substr(copied_);
  }

 private:
  bool next_statement() {
    for (; at_ < text_.size(); ++at_) {
      const char character = text_[at_];
      if (character == '#') comment();
      if (character != '#' && std::string_view(" \t\r\n;").find(character) == std::string_view::npos) return true;
    }
    return false;
  }

  // What is commented out counts, too: behind an option's name all of the line is its value.
  void comment() {
    const std::size_t end = std::min(text_.find('\n', at_), text_.size());
    Word last;
    while (at_ < end) {
      const Word word = commented_word(end);
      if (last.value == "option" || last.value == "list") {
        replace(word.value, rest_of_comment(end));
        at_ = end;
      }
      last = word;
    }
  }

  // Quotes are no part of it, for an apostrophe is not one.
  Word commented_word(std::size_t end) {
    const std::size_t start = std::min(text_.find_first_not_of("# \t'\"", at_), end);
    at_ = std::min(text_.find_first_of(" \t'\"", start), end);
    return {start, at_, text_.substr(start, at_ - start)};
  }

  Word rest_of_comment(std::size_t end) {
    if (at_ < end && text_[at_] != ' ') ++at_;  // the quote behind the name
    const std::size_t start = std::min(text_.find_first_not_of(" \t", at_), end);
    const std::string rest = text_.substr(start, end - start);
    const std::size_t first = rest.find_first_not_of("'\"");
    if (first == std::string::npos) return {start, end, ""};
    return {start, end, rest.substr(first, rest.find_last_not_of(" \t'\"") - first + 1)};
  }

  // "option NAME VALUE", "list NAME VALUE", or a change, "PACKAGE.SECTION.NAME=VALUE" behind a sign.
  void statement() {
    const std::size_t start = at_;
    const Word first = word();
    const std::size_t equals = text_.find('=', start);
    if (first.value == "option" || first.value == "list") {
      const Word name = next_word();
      replace(name.value, next_word());
    } else if (equals < first.end) {
      const std::size_t dot = text_.rfind('.', equals);
      at_ = equals + 1;
      replace(text_.substr(dot + 1, equals - dot - 1), word());
    }
    while (at_ < text_.size() && text_[at_] != '\n' && text_[at_] != ';') {
      if (text_[at_] == '#') {
        comment();
      } else {
        word_or_blank();
      }
    }
  }

  void replace(const std::string& option, const Word& value) {
    const auto other = new_value_(option, value.value);
    if (!other) return;
    result_.append(text_, copied_, value.start - copied_).append("'").append(*other).append("'");
    copied_ = value.end;
  }

  Word next_word() {
    while (at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\t')) ++at_;
    return word();
  }

  void word_or_blank() {
    const std::size_t start = at_;
    word();
    if (at_ == start) ++at_;
  }

  // The word that begins here, to the next blank outside of quotes; empty at one.
  Word word() {
    Word word = {at_, at_, ""};
    char quote = 0;
    for (; at_ < text_.size(); ++at_) {
      const char character = text_[at_];
      if (character == '\\' && quote != '\'' && at_ + 1 < text_.size()) {
        word.value += text_[++at_];
      } else if (character == quote) {
        quote = 0;
      } else if (quote == 0 && (character == '\'' || character == '"')) {
        quote = character;
      } else if (quote == 0 && std::string_view(" \t\r\n;").find(character) != std::string_view::npos) {
        break;
      } else {
        word.value += character;
      }
    }
    word.end = at_;
    return word;
  }

  const std::string& text_;
  const NewValue& new_value_;
  std::string result_;
  std::size_t copied_ = 0;
  std::size_t at_ = 0;
};

}  // namespace

std::string replace_option_values(const std::string& text, const NewValue& new_value) {
  return Replacement(text, new_value).run();
}

}  // namespace kovadm
