#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>

#include "commands/command.hpp"
#include "export/documents.hpp"
#include "model/origin.hpp"
#include "model/profile.hpp"

namespace kovadm {
namespace {

// ---- A table for spreadsheets ----

// As RFC 4180 wants it.
std::string cell(const std::string& text) {
  if (text.find_first_of(",\"\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char letter : text) quoted += letter == '"' ? std::string("\"\"") : std::string(1, letter);
  return quoted + '"';
}

std::string row_of(const std::vector<std::string>& cells) {
  std::string row;
  for (const std::string& each : cells) row += (row.empty() ? "" : ",") + cell(each);
  return row;
}

// By path: the profiles that ask for it.
std::map<std::string, std::string> profiles_by_path() {
  std::map<std::string, std::string> names;
  for (const Profile& profile : profiles()) {
    for (const Requirement& requirement : profile.requirements) {
      std::string& all = names[requirement.path];
      all += (all.empty() ? "" : " ") + profile.name;
    }
  }
  return names;
}

std::string table_of(const std::string& tree) {
  std::map<std::string, std::string> profiles = profiles_by_path();
  std::string text = "path,access,type,written by,model,profiles,note";
  for (const Row& row : catalogue()) {
    for (const std::string& path : row.paths) {
      if (!path.starts_with(tree)) continue;
      text += "\n" + row_of({path, to_text(row.access), to_text(row.type),
                             row.access == Access::READ_WRITE ? "server" : "device",
                             is_extension(path) ? "vendor" : "published", profiles[path], access_reason(path)});
    }
  }
  return text;
}

// ---- The command ----

struct Options {
  std::string format = "device-type";
  std::string tree;
};

const Node& root_of(const std::string& tree) {
  const Node* root = child_of(data_model(), tree);
  if (root != nullptr) return *root;
  std::string names;
  for (const Node& each : data_model().children) names += (names.empty() ? "" : " or ") + each.name;
  throw SetupError("a document is one of a tree: " + names);
}

std::string document_of(const Options& options) {
  if (options.format == "csv") return table_of(options.tree.empty() ? "" : root_of(options.tree).name + ".");
  const Node& root = root_of(options.tree);
  const std::string text = options.format == "device-type" ? device_type(root) : vendor_model(root);
  return text.substr(0, text.find_last_not_of('\n') + 1);
}

int export_model(const Options& options, Output& output) {
  const std::string text = document_of(options);
  output.line(text);
  output.document()["document"] = text;
  return output.finish();
}

Run define(CLI::App& line) {
  auto options = std::make_shared<Options>();
  line.add_option("--format", options->format, "What to write: device-type, vendor-model or csv")
      ->check(CLI::IsMember({"device-type", "vendor-model", "csv"}))
      ->option_text("FORMAT");
  line.add_option("TREE", options->tree, "Device or InternetGatewayDevice; for csv both when left out");
  return [options](Context& context) { return export_model(*options, context.output()); };
}

}  // namespace

const Command kExport = {"export", "What is served, as TR-106 documents or a table", false, define};

}  // namespace kovadm
