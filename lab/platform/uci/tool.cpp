// uci: the router's configuration tool, over the stand-in library.
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "model.hpp"
#include "write.hpp"

namespace {

using standin::Change;
using standin::quoted;

// The texts of an option: its value, or its items joined by blanks. Single ones are quoted on demand, and wherever the
// joined text would be ambiguous.
std::string shown_value(const uci_option* option, bool is_quoted) {
  if (option->type == UCI_TYPE_STRING) return is_quoted ? quoted(option->v.string) : option->v.string;
  std::string text;
  const char* separator = "";
  uci_element* item = nullptr;
  uci_foreach_element(&option->v.list, item) {
    const bool has_blank = std::strpbrk(item->name, " \t\r\n") != nullptr;
    text += separator + (is_quoted || has_blank ? quoted(item->name) : item->name);
    separator = " ";
  }
  return text;
}

// How `show` names a package's section: anonymous ones by their type and their place among its sections.
std::string shown_name(const uci_section* section) {
  if (!section->anonymous) return section->e.name;
  int index = 0;
  uci_element* element = nullptr;
  uci_foreach_element(&section->package->sections, element) {
    const uci_section* other = uci_to_section(element);
    if (other == section) break;
    if (std::strcmp(other->type, section->type) == 0) ++index;
  }
  return std::string("@") + section->type + "[" + std::to_string(index) + "]";
}

void show_option(const uci_section* section, const std::string& name, const uci_option* option) {
  printf("%s.%s.%s=%s\n", section->package->e.name, name.c_str(), option->e.name, shown_value(option, true).c_str());
}

void show_section(const uci_section* section, const std::string& name) {
  printf("%s.%s=%s\n", section->package->e.name, name.c_str(), section->type);
  uci_element* option = nullptr;
  uci_foreach_element(&section->options, option) show_option(section, name, uci_to_option(option));
}

void show_package(const uci_package* package) {
  uci_element* element = nullptr;
  uci_foreach_element(&package->sections, element) {
    const uci_section* section = uci_to_section(element);
    show_section(section, shown_name(section));
  }
}

int show(uci_context*, uci_ptr& ptr) {
  if (ptr.o != nullptr) {
    show_option(ptr.s, ptr.s->e.name, ptr.o);
  } else if (ptr.s != nullptr) {
    show_section(ptr.s, ptr.s->e.name);
  } else {
    show_package(ptr.p);
  }
  return UCI_OK;
}

int get(uci_context*, uci_ptr& ptr) {
  if (ptr.s != nullptr) puts(ptr.o != nullptr ? shown_value(ptr.o, false).c_str() : ptr.s->type);
  return UCI_OK;
}

int changes(uci_context*, uci_ptr& ptr) {
  for (const Change& change : standin::package_of(ptr.p).saved) {
    std::string line = std::string(ptr.p->e.name) + "." + change.section;
    if (!change.option.empty()) line += "." + change.option;
    if (change.kind == Change::REMOVE) {
      line.insert(0, "-");
    } else {
      if (change.kind == Change::ADD_TO_LIST) line += "+";
      if (change.kind == Change::REMOVE_FROM_LIST) line += "-";
      line += "=" + quoted(change.value);
    }
    puts(line.c_str());
  }
  return UCI_OK;
}

int revert(uci_context* context, uci_ptr& ptr) { return uci_revert(context, &ptr); }
int commit(uci_context* context, uci_ptr& ptr) { return uci_commit(context, &ptr.p, false); }

// A change, saved but not committed.
template <int (*change)(uci_context*, uci_ptr*)>
int changed(uci_context* context, uci_ptr& ptr) {
  const int error = change(context, &ptr);
  return error == UCI_OK ? uci_save(context, ptr.p) : error;
}

constexpr int kFailedWithoutMessage = -1;

enum class Value { NONE, WANTED, PLACE, ANY };

// A value that the command has no use for fails it without a word.
bool is_wrong(Value wanted, const char* value) {
  if (value == nullptr || wanted == Value::WANTED || wanted == Value::ANY) return false;
  int place = 0;
  return wanted == Value::NONE || (value[0] != '\0' && std::sscanf(value, "%d", &place) != 1);
}

struct Command {
  int (*run)(uci_context*, uci_ptr&);  // an error of the library
  Value value;
  bool needs_existing;
  bool takes_all;  // without an argument it works on every package
};

const std::map<std::string, Command> kCommands = {
    {"get", {get, Value::NONE, true, false}},
    {"show", {show, Value::ANY, true, true}},
    {"changes", {changes, Value::ANY, false, true}},
    {"set", {changed<uci_set>, Value::WANTED, false, false}},
    {"delete", {changed<uci_delete>, Value::PLACE, true, false}},
    {"add_list", {changed<uci_add_list>, Value::WANTED, false, false}},
    {"del_list", {changed<uci_del_list>, Value::WANTED, false, false}},
    {"revert", {revert, Value::NONE, false, false}},
    {"commit", {commit, Value::ANY, false, true}},
};

class Session {
 public:
  explicit Session(const char* name) : name_(name), context_(uci_alloc_context(), &uci_free_context) {}
  uci_context* context() const { return context_.get(); }
  void be_quiet() { is_quiet_ = true; }

  int run(const Command& command, std::string path) const {
    uci_ptr ptr = {};
    int error = uci_lookup_ptr(context(), &ptr, path.data(), true);
    if (error == UCI_OK) error = run_on(command, ptr);
    if (error == UCI_OK) return 0;
    standin::context_of(context()).error = error;
    if (!is_quiet_ && error != kFailedWithoutMessage) uci_perror(context(), name_);
    return 1;
  }

  // A package that fails does not spoil the whole.
  int run_on_all(const Command& command) const {
    char** names = nullptr;
    if (uci_list_configs(context(), &names) != UCI_OK) {
      if (!is_quiet_) uci_perror(context(), name_);
      return 1;
    }
    const std::unique_ptr<char*, decltype(&free)> owner(names, &free);
    for (; *names != nullptr; ++names) run(command, *names);
    return 0;
  }

 private:
  int run_on(const Command& command, uci_ptr& ptr) const {
    if (is_wrong(command.value, ptr.value)) return kFailedWithoutMessage;
    if (command.value == Value::WANTED && ptr.value == nullptr) return UCI_ERR_INVAL;
    if (command.needs_existing && !standin::is_raised(ptr, uci_ptr::UCI_LOOKUP_COMPLETE)) return UCI_ERR_NOTFOUND;
    return command.run(context(), ptr);
  }

  const char* name_;  // of the tool, in its messages
  std::unique_ptr<uci_context, decltype(&uci_free_context)> context_;
  bool is_quiet_ = false;
};

int usage() {
  fputs(
      "Usage: uci [-c configuration directory] [-p extra change directory] [-t save directory] [-q] COMMAND [PATH]\n"
      "Commands: get show changes set delete add_list del_list revert commit\n"
      "PATH: package[.section[.option]][=value]\n"
      "This is a development stand-in for OpenWrt's tool.\n",
      stderr);
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  Session session(argv[0]);
  for (int option = 0; (option = getopt(argc, argv, "+c:p:t:q")) != -1;) {
    if (option == 'c') uci_set_confdir(session.context(), optarg);
    if (option == 'p') uci_add_delta_path(session.context(), optarg);
    if (option == 't') uci_set_savedir(session.context(), optarg);
    if (option == 'q') session.be_quiet();
    if (option == '?') return usage();
  }
  const std::vector<std::string> arguments(argv + optind, argv + argc);
  const auto command = arguments.empty() ? kCommands.end() : kCommands.find(arguments[0]);
  if (command == kCommands.end() || arguments.size() > 2) return usage();
  if (arguments.size() == 2) return session.run(command->second, arguments[1]);
  return command->second.takes_all ? session.run_on_all(command->second) : usage();
}
