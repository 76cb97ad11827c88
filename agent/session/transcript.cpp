#include "session/transcript.hpp"

#include <cerrno>
#include <fstream>
#include <system_error>

#include "model/data_model.hpp"
#include "recording/own_file.hpp"
#include "session/envelope.hpp"

namespace kovadm::session {
namespace {

class SecretFinder : public pugi::xml_tree_walker {
 public:
  explicit SecretFinder(Redaction& redaction) : redaction_(redaction) {}

  bool for_each(pugi::xml_node& node) override {
    const std::string_view name = local_name(node);
    if (name == "ParameterValueStruct") {
      const auto parameter = find_parameter(child_text(node, "Name"));
      if (parameter && is_secret(*parameter->row)) note(child(node, "Value"));
    } else if (name == "Password") {
      note(node);
    }
    return true;
  }

 private:
  // As the value is, and as it stands in a message.
  void note(const pugi::xml_node& node) {
    const std::string text = element_text(node);
    redaction_.note_word(text);
    pugi::xml_document document;
    add_text(document, "v", text);
    std::ostringstream stream;
    document.save(stream, "", pugi::format_raw | pugi::format_no_declaration);
    const std::string written = stream.str();
    constexpr std::size_t kStart = sizeof "<v>" - 1;
    constexpr std::size_t kEnd = sizeof "</v>" - 1;
    if (!text.empty()) redaction_.note_word(written.substr(kStart, written.size() - kStart - kEnd));
  }

  Redaction& redaction_;
};

}  // namespace

void note_secrets(const std::string& message, Redaction& redaction) {
  auto read = read_message(message);
  auto* found = std::get_if<Message>(&read);
  if (found == nullptr) return;
  SecretFinder finder(redaction);
  found->document.traverse(finder);
}

Transcript::Transcript(const std::string& file, Redaction& redaction) : file_(file), redaction_(redaction) {
  if (file_.empty()) return;
  expect_to_write(file_);
  write_own_file(file_, "");
}

void Transcript::sent(const std::string& url, const std::string& message) { add("> POST " + url, message); }

void Transcript::received(long status, const std::string& message) { add("< " + std::to_string(status), message); }

void Transcript::add(const std::string& heading, const std::string& message) {
  note_secrets(message, redaction_);
  if (file_.empty()) return;
  std::ofstream stream(file_, std::ios::binary | std::ios::app);
  stream << heading << '\n' << redaction_.text(message) << (message.empty() ? "\n" : "\n\n");
  if (!stream.flush()) throw std::system_error(errno, std::generic_category(), file_);
}

}  // namespace kovadm::session
