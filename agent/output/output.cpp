#include "output/output.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <sstream>
#include <system_error>

namespace kovadm {
namespace {

FILE* open_standard_output() {
  FILE* opened = fdopen(fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1), "w");
  if (opened == nullptr) throw std::system_error(errno, std::generic_category(), "standard output");
  return opened;
}

// Shown at once: the next line may take a while. False, and errno says why, when it was not taken.
bool put_line(FILE* file, const std::string& text) {
  return std::fwrite(text.data(), 1, text.size(), file) == text.size() && std::fputc('\n', file) != EOF &&
         std::fflush(file) == 0;
}

std::string to_text(const Fault& fault) {
  std::string text =
      std::to_string(static_cast<int>(fault.code)) + " " + to_text(fault.code) + ": " + one_line(fault.path);
  if (!fault.detail.empty()) text += " (" + one_line(fault.detail) + ")";
  if (!fault.nearest.empty()) text += "\n     nearest: " + fault.nearest;
  return text;
}

Json to_json(const Fault& fault) {
  Json json = {{"code", fault.code}, {"message", to_text(fault.code)}, {"path", fault.path}};
  if (!fault.detail.empty()) json["detail"] = fault.detail;
  if (!fault.nearest.empty()) json["nearest"] = fault.nearest;
  return json;
}

bool add_once(std::vector<std::string>& list, const std::string& text) {
  if (std::find(list.begin(), list.end(), text) != list.end()) return false;
  list.push_back(text);
  return true;
}

}  // namespace

std::string one_line(const std::string& text) {
  std::string line;
  for (const char character : text) {
    if (character == '\\') {
      line += "\\\\";
    } else if (std::iscntrl(static_cast<unsigned char>(character)) == 0) {
      line += character;
    } else if (character == '\n') {
      line += "\\n";
    } else if (character == '\t') {
      line += "\\t";
    } else {
      char code[8] = {};
      std::snprintf(code, sizeof code, "\\x%02x", static_cast<unsigned>(static_cast<unsigned char>(character)));
      line += code;
    }
  }
  return line;
}

void Output::Closer::operator()(FILE* file) const { std::fclose(file); }

Output::Output(bool json, bool show_secrets)
    : json_(json), redaction_(show_secrets), file_(open_standard_output()), commands_({STDOUT_FILENO}) {}

void Output::put(const std::string& text) {
  if (!put_line(file_.get(), text) && lost_ == 0) lost_ = errno;
}

void Output::complain(const std::string& text) const {
  if (!json_) put_line(stderr, redaction_.text(text));
}

void Output::take_printed() {
  const std::string text = commands_.take();
  printed_ += text;
  if (json_) return;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) put(redaction_.text("printed: " + one_line(line)));
}

// Not at once: while it is found out, what is written to standard error may be caught.
void Output::tell_notes() {
  for (const std::string& note : notes_) {
    complain(one_line(note));
  }
  notes_.clear();
}

void Output::line(const std::string& text) {
  take_printed();
  tell_notes();
  if (!json_) put(redaction_.text(text));
}

void Output::value(const std::string& path, const std::string& value) {
  line(path + " = " + one_line(value));
  document_["values"].push_back({{"path", path}, {"value", value}});
}

void Output::fault(const Fault& fault) {
  tell_notes();
  faults_.push_back(to_json(fault));
  complain(to_text(fault));
}

void Output::failure(const std::string& text) {
  failed_ = true;
  complain("failed: " + one_line(text));
}

void Output::not_recorded(const std::string& what) {
  failed_ = true;
  if (add_once(not_recorded_, what)) notes_.push_back("not recorded: " + what);
}

void Output::warning(const std::string& text) {
  if (add_once(warnings_, text)) notes_.push_back("warning: " + text);
}

int Output::finish(int success) {
  take_printed();
  tell_notes();
  if (!not_recorded_.empty()) document_["not_recorded"] = not_recorded_;
  if (!warnings_.empty()) document_["warnings"] = warnings_;
  if (!document_.contains("printed")) document_["printed"] = printed_;
  document_["faults"] = faults_;
  redaction_.apply(document_);
  // Values are bytes of the device's; what is no UTF-8 is replaced.
  if (json_) put(document_.dump(2, ' ', false, Json::error_handler_t::replace));
  if (lost_ != 0) throw std::system_error(lost_, std::generic_category(), "standard output");
  return failed_ || !faults_.empty() ? 1 : success;
}

}  // namespace kovadm
