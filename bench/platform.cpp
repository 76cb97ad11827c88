#include "platform.hpp"

extern "C" {
#include <libubox/blobmsg.h>
#include <libubus.h>
}
#include <stdio.h>
#include <uci.h>

#include <cstring>

namespace kova::bench {
namespace {

uci_context* open_store(const char* directory) {
  uci_context* const context = uci_alloc_context();
  if (directory != nullptr) uci_set_confdir(context, directory);
  return context;
}

void take_field(ubus_request* request, int /*type*/, blob_attr* reply) {
  const blobmsg_policy policy = {.name = static_cast<const char*>(request->priv), .type = BLOBMSG_TYPE_UNSPEC};
  blob_attr* field = nullptr;
  blobmsg_parse(&policy, 1, &field, blob_data(reply), static_cast<unsigned>(blob_len(reply)));
}

}  // namespace

void read_option(const char* directory, const char* package, const char* section, const char* option, char* value) {
  uci_context* const context = open_store(directory);
  uci_package* loaded = nullptr;
  if (uci_load(context, package, &loaded) == UCI_OK) {
    uci_section* const found = uci_lookup_section(context, loaded, section);
    const char* text = found != nullptr ? uci_lookup_option_string(context, found, option) : nullptr;
    if (text != nullptr) strcpy(value, text);
  }
  uci_free_context(context);
}

void load_package(const char* directory, const char* package) {
  uci_context* const context = open_store(directory);
  uci_package* loaded = nullptr;
  uci_load(context, package, &loaded);
  uci_free_context(context);
}

void write_option(const char* directory, const char* path, const char* value) {
  uci_context* const context = open_store(directory);
  char place[128];
  strcpy(place, path);
  uci_ptr element = {};
  if (uci_lookup_ptr(context, &element, place, false) == UCI_OK) {
    element.value = value;
    if (uci_set(context, &element) == UCI_OK) uci_commit(context, &element.p, false);
  }
  uci_free_context(context);
}

void call_bus(const char* object, const char* method, blob_attr* message, const char* field) {
  ubus_context* const bus = ubus_connect(nullptr);
  uint32_t id = 0;
  if (bus == nullptr) return;
  if (ubus_lookup_id(bus, object, &id) == 0)
    ubus_invoke(bus, id, method, message, take_field, const_cast<char*>(field), 3000);
  ubus_free(bus);
}

void read_command(const char* command) {
  char line[128];
  FILE* const pipe = popen(command, "re");
  if (pipe == nullptr) return;
  if (fgets(line, sizeof line, pipe) != nullptr) line[strcspn(line, "\n")] = '\0';
  pclose(pipe);
}

}  // namespace kova::bench
