// uci: the router's configuration tool, over the stand-in library.
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "uci.h"

namespace {

using Context = std::unique_ptr<uci_context, decltype(&uci_free_context)>;

int fail(uci_context* context) {
  uci_perror(context, "uci");
  return 1;
}

int fail_with(const char* text) {
  fprintf(stderr, "uci: %s\n", text);
  return 1;
}

std::string joined(const uci_option* option, const char* quote) {
  if (option->type == UCI_TYPE_STRING) return quote + std::string(option->v.string) + quote;
  std::string text;
  uci_element* item = nullptr;
  uci_foreach_element(&option->v.list, item) text +=
      (text.empty() ? "" : " ") + (quote + std::string(item->name)) + quote;
  return text;
}

// How `show` names a section: anonymous ones by their type and their place among its sections.
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

void show_option(const uci_section* section, const uci_option* option) {
  printf("%s.%s.%s=%s\n", section->package->e.name, shown_name(section).c_str(), option->e.name,
         joined(option, "'").c_str());
}

void show_section(const uci_section* section) {
  printf("%s.%s=%s\n", section->package->e.name, shown_name(section).c_str(), section->type);
  uci_element* option = nullptr;
  uci_foreach_element(&section->options, option) show_option(section, uci_to_option(option));
}

void show_package(const uci_package* package) {
  uci_element* section = nullptr;
  uci_foreach_element(&package->sections, section) show_section(uci_to_section(section));
}

int show(uci_context*, uci_ptr& ptr) {
  if (ptr.o != nullptr) {
    show_option(ptr.s, ptr.o);
  } else if (ptr.s != nullptr) {
    show_section(ptr.s);
  } else {
    show_package(ptr.p);
  }
  return 0;
}

int get(uci_context*, uci_ptr& ptr) {
  if (ptr.o != nullptr) {
    printf("%s\n", joined(ptr.o, "").c_str());
  } else if (ptr.s != nullptr) {
    printf("%s\n", ptr.s->type);
  } else {
    return fail_with("Invalid argument");
  }
  return 0;
}

int revert(uci_context* context, uci_ptr& ptr) { return uci_revert(context, &ptr) == UCI_OK ? 0 : fail(context); }

int commit(uci_context* context, uci_ptr& ptr) {
  return uci_commit(context, &ptr.p, false) == UCI_OK ? 0 : fail(context);
}

// A change, saved but not committed.
template <int (*change)(uci_context*, uci_ptr*)>
int changed(uci_context* context, uci_ptr& ptr) {
  if (change(context, &ptr) != UCI_OK || uci_save(context, ptr.p) != UCI_OK) return fail(context);
  return 0;
}

struct Command {
  int (*run)(uci_context*, uci_ptr&);
  bool needs_value;
  bool needs_existing;
  bool takes_all;  // without an argument it works on every package
};

const std::map<std::string, Command> kCommands = {
    {"get", {get, false, true, false}},
    {"show", {show, false, true, true}},
    {"set", {changed<uci_set>, true, false, false}},
    {"delete", {changed<uci_delete>, false, true, false}},
    {"add_list", {changed<uci_add_list>, true, false, false}},
    {"del_list", {changed<uci_del_list>, true, false, false}},
    {"revert", {revert, false, false, false}},
    {"commit", {commit, false, false, true}},
};

int run_on(uci_context* context, const Command& command, std::string path) {
  uci_ptr ptr = {};
  if (uci_lookup_ptr(context, &ptr, path.data(), true) != UCI_OK) return fail(context);
  if (command.needs_value && ptr.value == nullptr) return fail_with("Invalid argument");
  if (command.needs_existing && (ptr.flags & UCI_LOOKUP_COMPLETE) == 0) return fail_with("Entry not found");
  return command.run(context, ptr);
}

int run_on_all(uci_context* context, const Command& command) {
  char** names = nullptr;
  if (uci_list_configs(context, &names) != UCI_OK) return fail(context);
  const std::unique_ptr<char*, decltype(&free)> owner(names, &free);
  int status = 0;
  for (; *names != nullptr; ++names) status |= run_on(context, command, *names);
  return status;
}

int usage() {
  fputs(
      "Usage: uci [-c configuration directory] [-p extra change directory] [-t save directory] [-q] COMMAND [PATH]\n"
      "Commands: get show set delete add_list del_list revert commit; PATH: package[.section[.option]][=value]\n"
      "This is a development stand-in for OpenWrt's tool.\n",
      stderr);
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  const Context context(uci_alloc_context(), &uci_free_context);
  for (int option = 0; (option = getopt(argc, argv, "+c:p:t:q")) != -1;) {
    if (option == 'c') uci_set_confdir(context.get(), optarg);
    if (option == 'p') uci_add_delta_path(context.get(), optarg);
    if (option == 't') uci_set_savedir(context.get(), optarg);
    if (option == 'q' && freopen("/dev/null", "w", stderr) == nullptr) return 1;
    if (option == '?') return usage();
  }
  const std::vector<std::string> arguments(argv + optind, argv + argc);
  const auto command = arguments.empty() ? kCommands.end() : kCommands.find(arguments[0]);
  if (command == kCommands.end() || arguments.size() > 2) return usage();
  if (arguments.size() == 2) return run_on(context.get(), command->second, arguments[1]);
  return command->second.takes_all ? run_on_all(context.get(), command->second) : usage();
}
