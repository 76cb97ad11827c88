#include "session/transcript.hpp"

#include <cerrno>
#include <fstream>
#include <sstream>
#include <system_error>

#include "model/data_model.hpp"
#include "recording/own_file.hpp"
#include "session/envelope.hpp"

namespace kovadm::session {
namespace {

// Puts the mark in the place of values of secret parameters, and of passwords of other requests.
class Masking : public pugi::xml_tree_walker {
 public:
  explicit Masking(Redaction& redaction) : redaction_(redaction) {}

  bool found() const { return found_; }

  bool for_each(pugi::xml_node& node) override {
    const std::string_view name = local_name(node);
    if (name == "ParameterValueStruct") {
      const auto parameter = find_parameter(child_text(node, "Name"));
      if (parameter && is_secret(*parameter->row)) mask(child(node, "Value"));
    } else if (name == "Password") {
      mask(node);
    }
    return true;
  }

 private:
  void mask(pugi::xml_node node) {
    const std::string secret = element_text(node);
    if (secret.empty()) return;
    const std::string told = redaction_.secret(secret);  // longer ones are replaced elsewhere, too
    found_ |= told != secret;
    node.remove_children();
    node.text() = told.c_str();
  }

  Redaction& redaction_;
  bool found_ = false;
};

}  // namespace

std::string without_secrets(const std::string& message, Redaction& redaction) {
  pugi::xml_document document;
  constexpr unsigned kAll = pugi::parse_full | pugi::parse_ws_pcdata;
  if (!document.load_buffer(message.data(), message.size(), kAll)) return redaction.text(message);
  Masking masking(redaction);
  document.traverse(masking);
  if (!masking.found()) return redaction.text(message);
  std::ostringstream stream;
  document.save(stream, "", pugi::format_raw);
  return redaction.text(stream.str());
}

Transcript::Transcript(std::string file, Redaction& redaction) : file_(std::move(file)), redaction_(redaction) {
  if (file_.empty()) return;
  expect_to_write(file_);
  write_own_file(file_, "");
}

void Transcript::sent(const std::string& url, const std::string& message) { add("> POST " + url, message); }

void Transcript::received(long status, const std::string& message) { add("< " + std::to_string(status), message); }

void Transcript::add(const std::string& heading, const std::string& message) {
  if (file_.empty()) return;
  std::ofstream stream(file_, std::ios::binary | std::ios::app);
  stream << heading << '\n' << without_secrets(message, redaction_) << (message.empty() ? "\n" : "\n\n");
  if (!stream.flush()) throw std::system_error(errno, std::generic_category(), file_);
}

}  // namespace kovadm::session
