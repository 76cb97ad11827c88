// Contexts, their directories and their errors.
#include <dirent.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

#include "model.hpp"

using namespace standin;

namespace {

constexpr const char* kErrorTexts[] = {"Success",   "Out of memory", "Invalid argument", "Entry not found",
                                       "I/O error", "Parse error",   "Duplicate entry",  "Unknown error"};

std::string error_text(const Context& context, const char* prefix) {
  std::string text = prefix != nullptr ? std::string(prefix) + ": " : "";
  text += kErrorTexts[std::clamp(context.error, static_cast<int>(UCI_OK), static_cast<int>(UCI_ERR_UNKNOWN))];
  if (!context.detail.empty()) text += " " + context.detail;
  return text;
}

// Of the C library's memory, as the real ones: who has no use for a directory frees its element.
void add_path(Context& context, const std::string& directory) {
  auto* path = static_cast<uci_element*>(calloc(1, sizeof(uci_element)));
  require(path != nullptr, UCI_ERR_MEM);
  path->type = UCI_TYPE_PATH;
  path->name = strdup(directory.c_str());
  path->list = {&context.delta_path, context.delta_path.prev};
  path->list.prev->next = context.delta_path.prev = &path->list;
  require(path->name != nullptr, UCI_ERR_MEM);
}

void free_path(uci_element* path) {
  path->list.prev->next = path->list.next;
  path->list.next->prev = path->list.prev;
  free(path->name);
  free(path);
}

}  // namespace

uci_context* uci_alloc_context() {
  auto* context = new (std::nothrow) Context();
  if (context == nullptr) return nullptr;
  init(context->root);
  init(context->delta_path);
  if (uci_set_savedir(context, UCI_SAVEDIR) == UCI_OK) return context;
  uci_free_context(context);
  return nullptr;
}

void uci_free_context(uci_context* ctx) {
  if (ctx == nullptr) return;
  while (ctx->root.next != &ctx->root) free_package(&package_of(uci_to_package(list_to_element(ctx->root.next))));
  while (ctx->delta_path.next != &ctx->delta_path) free_path(list_to_element(ctx->delta_path.next));
  delete &context_of(ctx);
}

int uci_set_confdir(uci_context* ctx, const char* dir) {
  return guarded(ctx, [&](Context& context) {
    require(dir != nullptr, UCI_ERR_INVAL);
    context.configuration_directory = dir;
  });
}

int uci_set_savedir(uci_context* ctx, const char* dir) {
  return guarded(ctx, [&](Context& context) {
    require(dir != nullptr, UCI_ERR_INVAL);
    std::string directory = dir;
    if (uci_element* known = find(context.delta_path, directory)) free_path(known);
    add_path(context, directory);
    context.save_directory = std::move(directory);
  });
}

int uci_add_delta_path(uci_context* ctx, const char* dir) {
  return guarded(ctx, [&](Context& context) {
    require(dir != nullptr, UCI_ERR_INVAL);
    require(find(context.delta_path, dir) == nullptr, UCI_ERR_DUPLICATE);
    add_path(context, dir);
    // The save directory stays the last one.
    if (uci_element* last = find(context.delta_path, context.save_directory)) free_path(last);
    add_path(context, context.save_directory);
  });
}

int uci_list_configs(uci_context* ctx, char*** list) {
  return guarded(ctx, [&](Context& context) {
    require(list != nullptr, UCI_ERR_INVAL);
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(opendir(context.configuration_directory.c_str()), &closedir);
    require(directory != nullptr, UCI_ERR_NOTFOUND);
    std::vector<std::string> names;
    while (const dirent* entry = readdir(directory.get())) {
      if (is_package_name(entry->d_name)) names.emplace_back(entry->d_name);
    }
    std::sort(names.begin(), names.end());
    // One block, so that a plain free() releases names and array.
    size_t size = (names.size() + 1) * sizeof(char*);
    for (const std::string& name : names) size += name.size() + 1;
    auto** result = static_cast<char**>(calloc(1, size));
    require(result != nullptr, UCI_ERR_MEM);
    char* text = reinterpret_cast<char*>(result + names.size() + 1);
    for (size_t i = 0; i < names.size(); ++i) {
      result[i] = text;
      memcpy(text, names[i].c_str(), names[i].size() + 1);
      text += names[i].size() + 1;
    }
    *list = result;
  });
}

void uci_get_errorstr(uci_context* ctx, char** dest, const char* prefix) {
  const std::string text = error_text(context_of(ctx), prefix);
  if (dest != nullptr) {
    *dest = strdup(text.c_str());
  } else {
    fprintf(stderr, "%s\n", text.c_str());
  }
}

void uci_perror(uci_context* ctx, const char* prefix) { uci_get_errorstr(ctx, nullptr, prefix); }
