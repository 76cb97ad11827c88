#include "device/needs.hpp"

#include <algorithm>
#include <optional>
#include <regex>
#include <sstream>
#include <string_view>

#include "seam/paths.hpp"
#include "seam/platform.hpp"

namespace kovadm {
namespace {

// ---- Command lines ----

struct Word {
  std::string text;
  bool quoted = false;
};
using Words = std::vector<Word>;  // of one program: its name, and what it is given

// A command line, program by program; without what it writes to, which need not be there.
class Splitter {
 public:
  std::vector<Words> split(const std::string& line) {
    for (const char letter : line) take(letter);
    end_program();
    return std::move(programs_);
  }

 private:
  void take(char letter) {
    if (quote_ != 0) {
      if (letter == quote_) {
        quote_ = 0;
      } else {
        word_->text += letter;
      }
    } else if (letter == '\'' || letter == '"') {
      quote_ = letter;
      word().quoted = true;
    } else if (std::string_view("|&;()\n").find(letter) != std::string_view::npos) {
      end_program();
    } else if (letter == '>') {
      word_.reset();  // a descriptor's number
      written_ = true;
    } else if (letter == ' ' || letter == '\t' || letter == '<') {
      end_word();
    } else {
      word().text += letter;
    }
  }

  Word& word() { return word_ ? *word_ : word_.emplace(); }

  void end_word() {
    if (!word_) return;
    if (!written_) words_.push_back(*word_);
    written_ = false;
    word_.reset();
  }

  void end_program() {
    end_word();
    if (!words_.empty()) programs_.push_back(std::move(words_));
    words_.clear();
  }

  std::vector<Words> programs_;
  Words words_;
  std::optional<Word> word_;
  bool written_ = false;  // the next word is where to
  char quote_ = 0;
};

// Names and paths that the shell makes nothing else of.
bool is_plain(const std::string& text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](unsigned char letter) {
    return std::isalnum(letter) != 0 ||
           std::string_view("_./+-").find(static_cast<char>(letter)) != std::string_view::npos;
  });
}

std::string before(const std::string& text, char end) { return text.substr(0, text.find(end)); }

// "get" or "set" of uci, behind its options, names the package; "call" of ubus the object.
void add_argument(const Words& words, const char* program, Need need, std::vector<Needed>& needs) {
  if (words.front().text != program) return;
  auto word = words.begin() + 1;
  while (word != words.end() && word->text.starts_with('-')) ++word;
  if (word == words.end() || ++word == words.end()) return;
  const std::string name = need == Need::PACKAGE ? before(before(word->text, '='), '.') : word->text;
  if (is_plain(name)) needs.push_back({need, name});
}

void add_needs(const Words& words, std::vector<Needed>& needs) {
  if (is_plain(words.front().text)) needs.push_back({Need::PROGRAM, words.front().text});
  for (auto word = words.begin() + 1; word < words.end(); ++word) {
    if (!word->quoted && word->text.starts_with('/') && is_plain(word->text)) needs.push_back({Need::FILE, word->text});
  }
  add_argument(words, "uci", Need::PACKAGE, needs);
  add_argument(words, "ubus", Need::BUS_OBJECT, needs);
}

// ---- The platform ----

// Asks the shell that would run it: some have programs in them.
bool has_program(const std::string& name) {
  FILE* pipe = seam::platform().popen(("command -v " + name).c_str(), "re");
  if (pipe == nullptr) return false;
  while (std::getc(pipe) != EOF) {
  }
  return seam::platform().pclose(pipe) == 0;
}

bool has_file(const std::string& path) { return seam::platform().access(path.c_str(), F_OK) == 0; }

bool has_object(const std::string& object) {
  ubus_context* bus = seam::platform().ubus_connect(nullptr);
  if (bus == nullptr) return false;
  uint32_t id = 0;
  const bool found = seam::platform().ubus_lookup_id(bus, object.c_str(), &id) == 0;
  seam::platform().ubus_free(bus);
  return found;
}

bool look_for(const Needed& needed) {
  switch (needed.need) {
    case Need::PROGRAM:
      return has_program(needed.name);
    case Need::FILE:
      return has_file(needed.name);
    case Need::PACKAGE:
      return has_file(seam::kMainStore + ("/" + needed.name));
    case Need::BUS_OBJECT:
      return has_object(needed.name);
  }
  return false;
}

}  // namespace

std::vector<Needed> needs_of(const std::string& command_line) {
  std::vector<Needed> needs;
  for (const Words& words : Splitter().split(command_line)) add_needs(words, needs);
  return needs;
}

std::vector<std::string> programs_missed_in(const std::string& errors) {
  constexpr std::size_t kLongest = 500;  // what a shell writes is short, and patterns take room on the stack
  static const std::regex missed(R"([^ :]+: (line )?(\d+: )?([\w./+-]+): (command )?not found)");
  std::vector<std::string> programs;
  std::istringstream lines(errors);
  std::smatch found;
  for (std::string line; std::getline(lines, line);) {
    if (line.size() <= kLongest && std::regex_match(line, found, missed)) programs.push_back(found[3]);
  }
  return programs;
}

bool Inventory::has(const Needed& needed) {
  auto known = known_.find(needed);
  if (known == known_.end()) known = known_.emplace(needed, look_for(needed)).first;
  return known->second;
}

}  // namespace kovadm
