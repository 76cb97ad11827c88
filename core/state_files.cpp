#include <unistd.h>

#include "look.hpp"
#include "pkg-tool.h"

namespace {

constexpr char kHosts[] = "/tmp/tr069/hosts";
constexpr char kMeshList[] = "/tmp/tr069/meshlist";

bool exists(const char* path) { return access(path, F_OK) == 0; }

// A table that is not there is made whatever a look has kept.
int32_t make(const char* command) {
  kova::look_anew();
  return cwmp_system(command);
}

}  // namespace

int32_t generate_host_info() { return exists(kHosts) ? 0 : make("/usr/bin/tr069/gen_hosts"); }

int32_t generate_mesh_info() { return exists(kMeshList) ? 0 : make("/usr/bin/tr069/gen_meshlist"); }

int32_t delete_host_info() { return exists(kHosts) ? cwmp_system("rm /tmp/tr069/hosts") : -1; }
