/*
 * uci.h: stand-in for the header of libuci, for development on workstations where the real library is not installed.
 * It has the part of the API that this project uses, source compatible with the real one, and works on real OpenWrt
 * files. It never ships: on the router the agent brings the real libuci.
 */
#ifndef KOVA_STANDIN_UCI_H
#define KOVA_STANDIN_UCI_H

#include <stdbool.h>
#include <stddef.h>
#include <stdint.h>
#include <stdio.h>

#ifdef __cplusplus
extern "C" {
#endif

#define UCI_CONFDIR "/etc/config"
#define UCI_SAVEDIR "/tmp/.uci"

enum {
  UCI_OK = 0,
  UCI_ERR_MEM,
  UCI_ERR_INVAL,
  UCI_ERR_NOTFOUND,
  UCI_ERR_IO,
  UCI_ERR_PARSE,
  UCI_ERR_DUPLICATE,
  UCI_ERR_UNKNOWN
};

enum uci_type {
  UCI_TYPE_UNSPEC = 0,
  UCI_TYPE_DELTA = 1,
  UCI_TYPE_PACKAGE = 2,
  UCI_TYPE_SECTION = 3,
  UCI_TYPE_OPTION = 4,
  UCI_TYPE_PATH = 5,
  UCI_TYPE_BACKEND = 6,
  UCI_TYPE_ITEM = 7
};

enum uci_option_type { UCI_TYPE_STRING = 0, UCI_TYPE_LIST = 1 };

struct uci_list {
  struct uci_list* next;
  struct uci_list* prev;
};

struct uci_element {
  struct uci_list list;
  enum uci_type type;
  char* name;
};

struct uci_context {
  struct uci_list root;       /* the loaded packages */
  struct uci_list delta_path; /* the directories of changes, the save directory last */
};

struct uci_package {
  struct uci_element e;
  struct uci_list sections;
  struct uci_context* ctx;
  bool has_delta;
  char* path;
};

struct uci_section {
  struct uci_element e;
  struct uci_list options;
  struct uci_package* package;
  bool anonymous;
  char* type;
};

struct uci_option {
  struct uci_element e;
  struct uci_section* section;
  enum uci_option_type type;
  union {
    struct uci_list list;
    char* string;
  } v;
};

struct uci_ptr {
  enum uci_type target;
  enum { UCI_LOOKUP_DONE = 1, UCI_LOOKUP_COMPLETE = 2, UCI_LOOKUP_EXTENDED = 4 } flags;
  struct uci_package* p;
  struct uci_section* s;
  struct uci_option* o;
  struct uci_element* last;
  const char* package;
  const char* section;
  const char* option;
  const char* value;
};

struct uci_context* uci_alloc_context(void);
void uci_free_context(struct uci_context* ctx);
int uci_set_confdir(struct uci_context* ctx, const char* dir);
int uci_set_savedir(struct uci_context* ctx, const char* dir);
int uci_add_delta_path(struct uci_context* ctx, const char* dir);

int uci_load(struct uci_context* ctx, const char* name, struct uci_package** package);
int uci_unload(struct uci_context* ctx, struct uci_package* package);
int uci_save(struct uci_context* ctx, struct uci_package* package);
int uci_commit(struct uci_context* ctx, struct uci_package** package, bool overwrite);
/* Names of the packages in the configuration directory: a NULL-terminated array to be freed with free(). */
int uci_list_configs(struct uci_context* ctx, char*** list);

int uci_lookup_ptr(struct uci_context* ctx, struct uci_ptr* ptr, char* str, bool extended);
int uci_lookup_next(struct uci_context* ctx, struct uci_element** e, struct uci_list* list, const char* name);

int uci_set(struct uci_context* ctx, struct uci_ptr* ptr);
int uci_add_list(struct uci_context* ctx, struct uci_ptr* ptr);
int uci_del_list(struct uci_context* ctx, struct uci_ptr* ptr);
int uci_delete(struct uci_context* ctx, struct uci_ptr* ptr);
int uci_revert(struct uci_context* ctx, struct uci_ptr* ptr);

void uci_get_errorstr(struct uci_context* ctx, char** dest, const char* prefix);
void uci_perror(struct uci_context* ctx, const char* prefix);

#define list_to_element(ptr) ((struct uci_element*)(void*)((char*)(ptr)-offsetof(struct uci_element, list)))
#define uci_foreach_element(_list, _ptr) \
  for ((_ptr) = list_to_element((_list)->next); &(_ptr)->list != (_list); (_ptr) = list_to_element((_ptr)->list.next))
#define uci_foreach_element_safe(_list, _tmp, _ptr)                                                                    \
  for ((_ptr) = list_to_element((_list)->next), (_tmp) = list_to_element((_ptr)->list.next); &(_ptr)->list != (_list); \
       (_ptr) = (_tmp), (_tmp) = list_to_element((_ptr)->list.next))

static inline struct uci_package* uci_to_package(struct uci_element* e) {
  return (struct uci_package*)(void*)((char*)e - offsetof(struct uci_package, e));
}
static inline struct uci_section* uci_to_section(struct uci_element* e) {
  return (struct uci_section*)(void*)((char*)e - offsetof(struct uci_section, e));
}
static inline struct uci_option* uci_to_option(struct uci_element* e) {
  return (struct uci_option*)(void*)((char*)e - offsetof(struct uci_option, e));
}

// NOLINTBEGIN(modernize-use-nullptr): for C too
static inline struct uci_package* uci_lookup_package(struct uci_context* ctx, const char* name) {
  struct uci_element* e = NULL;
  return uci_lookup_next(ctx, &e, &ctx->root, name) == UCI_OK ? uci_to_package(e) : NULL;
}
static inline struct uci_section* uci_lookup_section(struct uci_context* ctx, struct uci_package* p, const char* name) {
  struct uci_element* e = NULL;
  return uci_lookup_next(ctx, &e, &p->sections, name) == UCI_OK ? uci_to_section(e) : NULL;
}
static inline struct uci_option* uci_lookup_option(struct uci_context* ctx, struct uci_section* s, const char* name) {
  struct uci_element* e = NULL;
  return uci_lookup_next(ctx, &e, &s->options, name) == UCI_OK ? uci_to_option(e) : NULL;
}
static inline const char* uci_lookup_option_string(struct uci_context* ctx, struct uci_section* s, const char* name) {
  struct uci_option* o = uci_lookup_option(ctx, s, name);
  return o != NULL && o->type == UCI_TYPE_STRING ? o->v.string : NULL;
}
// NOLINTEND(modernize-use-nullptr)

#ifdef __cplusplus
}
#endif

#endif
