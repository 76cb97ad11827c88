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

}  // namespace

uci_context* uci_alloc_context() {
  auto* context = new (std::nothrow) Context();
  if (context != nullptr) init(context->root);
  return context;
}

void uci_free_context(uci_context* ctx) {
  if (ctx == nullptr) return;
  while (ctx->root.next != &ctx->root) free_package(&package_of(uci_to_package(list_to_element(ctx->root.next))));
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
    context.save_directory = dir;
  });
}

int uci_add_delta_path(uci_context* ctx, const char* dir) {
  return guarded(ctx, [&](Context& context) {
    require(dir != nullptr, UCI_ERR_INVAL);
    context.delta_directories.emplace_back(dir);
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
