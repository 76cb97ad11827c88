#include "commands/completion.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iterator>
#include <set>

#include "model/data_model.hpp"
#include "model/profile.hpp"

namespace kovadm {
namespace {

using Words = std::vector<std::string>;

// ---- Parameter paths ----

bool is_writable(const Node& node) {
  if (node.row != nullptr) return node.row->access == Access::READ_WRITE;
  return std::any_of(node.children.begin(), node.children.end(), is_writable);
}

// What the user may write for a component; empty when it does not begin as typed.
std::string spelled(const std::string& name, const std::string& typed) {
  if (name != kInstance) return name.starts_with(typed) ? name : "";
  if (typed.empty()) return "1";
  return instance_number(typed) ? typed : "";
}

// The paths that begin as typed, up to the next dot; for a set those that can be set, each with an equals sign.
Words paths(const std::string& typed, bool for_set) {
  const std::size_t known = typed.rfind('.') + 1;  // 0 without a dot
  const Node* node = &data_model();
  for (const std::string& component : split_path(typed.substr(0, known))) {
    node = child_of(*node, component);
    if (node == nullptr) return {};
  }
  Words found;
  for (const Node& child : node->children) {
    const std::string name = spelled(child.name, typed.substr(known));
    if (name.empty() || (for_set && !is_writable(child))) continue;
    const char* end = child.row == nullptr ? "." : for_set ? "=" : "";
    found.push_back(typed.substr(0, known) + name + end);
  }
  return found;
}

// ---- Words of the command line ----

Words that_begin_with(const std::string& beginning, const Words& words) {
  Words found;
  std::copy_if(words.begin(), words.end(), std::back_inserter(found),
               [&](const std::string& word) { return word.starts_with(beginning); });
  return found;
}

std::vector<const CLI::App*> commands_of(const CLI::App& app) {
  return app.get_subcommands([](const CLI::App*) { return true; });
}

Words command_names(const CLI::App& app) {
  Words names;
  for (const CLI::App* command : commands_of(app)) names.push_back(command->get_name());
  return names;
}

void add_options(const CLI::App& app, Words& names) {
  for (const CLI::Option* option : app.get_options()) {
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  }
}

Words profile_names() {
  std::set<std::string> names;
  for (const Profile& profile : profiles()) names.insert(profile.name);
  return {names.begin(), names.end()};
}

Words tree_names() {
  Words names;
  for (const Node& root : data_model().children) names.push_back(root.name);
  return names;
}

// What the command's positional argument is called in its help.
std::string argument_of(const CLI::App& command) {
  for (const CLI::Option* option : command.get_options()) {
    if (option->get_positional()) return option->get_name(true);
  }
  return "";
}

// For an argument that is called so.
Words arguments(const std::string& called, const std::string& typed) {
  if (called.starts_with("PATH") || called == "PREFIX") return paths(typed, called.ends_with("=VALUE"));
  if (called == "NAME") return that_begin_with(typed, profile_names());
  if (called == "TREE") return that_begin_with(typed, tree_names());
  return {};
}

// Whether the next word belongs to it.
bool takes_a_value(const CLI::App& app, const std::string& word) {
  const CLI::Option* option = word.starts_with("--") ? app.get_option_no_throw(word) : nullptr;
  return option != nullptr && option->get_items_expected_max() > 0;
}

// What stands before the last word.
struct Before {
  const CLI::App* command = nullptr;  // nullptr: none yet
  bool wants_value = false;           // of an option
};

Before before_last(const CLI::App& app, const Words& words) {
  Before before;
  for (std::size_t index = 0; index + 1 < words.size(); ++index) {
    const std::string& word = words[index];
    if (before.wants_value) {
      before.wants_value = false;
      continue;
    }
    before.wants_value =
        takes_a_value(app, word) || (before.command != nullptr && takes_a_value(*before.command, word));
    if (before.command != nullptr) continue;
    for (const CLI::App* command : commands_of(app)) {
      if (command->get_name() == word) before.command = command;
    }
  }
  return before;
}

}  // namespace

Words completions(const CLI::App& app, const Words& words) {
  const std::string typed = words.empty() ? "" : words.back();
  const Before before = before_last(app, words);
  if (before.wants_value) return {};
  if (!typed.starts_with('-')) {
    return before.command == nullptr ? that_begin_with(typed, command_names(app))
                                     : arguments(argument_of(*before.command), typed);
  }
  Words options;
  add_options(app, options);
  if (before.command != nullptr) add_options(*before.command, options);
  std::sort(options.begin(), options.end());
  options.erase(std::unique(options.begin(), options.end()), options.end());  // each has its --help
  return that_begin_with(typed, options);
}

}  // namespace kovadm
