// What the built library shows to, and asks of, the process that loads it.
#include <dlfcn.h>
#include <elf.h>
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "seam/platform.hpp"
#include "support/catalogue.hpp"

namespace kova::test {
namespace {

using Names = std::set<std::string>;

const Names kSharedHelpers = {"normal_debug_print", "syslog_message",
                              // configuration store
                              "uci_raw_extract_value", "uci_raw_set_value", "uci_raw_extract_value_By_path",
                              "uci_raw_set_value_By_path", "uciRevert", "uciGetProfileValue",
                              // commands, task records, state files
                              "util_exec", "cwmp_system", "GetFirmDeviceInfo", "record_task_cmd",
                              "record_task_cmd_once", "generate_host_info", "generate_mesh_info", "delete_host_info",
                              // bus
                              "ubus_call", "netif_get_interface_status", "netif_get_device_status",
                              // validation, counters, board, channels, DHCP pool
                              "checkValidIP", "validityHost", "validityCheck", "CheckValidMacAddr",
                              "get_TotalBytesAndPackets_by_name", "get_mac", "get_oui", "get_mac_last", "get_cloud_sn",
                              "get_device_sn", "GetChannelPoll", "dhcp_calc_ipaddr_pool", "dhcp_calc_pool_range",
                              // port mappings
                              "PortMapping_ExternalPort", "PortMapping_InternalPort", "PortMapping_PortMappingProtocol",
                              "PortMapping_InternalClient", "PortMapping_PortMappingDescription",
                              // static routes
                              "Router_IPv4ForwardingNumberOfEntries", "Router_IPv4Forwarding_StaticRoute",
                              "Router_IPv4Forwarding_Interface", "Router_IPv4Forwarding_DestIPAddress",
                              "Router_IPv4Forwarding_DestSubnetMask", "Router_IPv4Forwarding_GatewayIPAddress"};

// The dynamic section of the library, as the loader sees it.
class Library {
 public:
  explicit Library(const char* path) {
    std::ifstream file(path, std::ios::binary);
    image_.assign(std::istreambuf_iterator<char>(file), {});
    const auto header = at<Elf64_Ehdr>(0);
    for (size_t i = 0; i < header.e_shnum; ++i) {
      const auto section = at<Elf64_Shdr>(header.e_shoff + i * size_t{header.e_shentsize});
      const auto names = at<Elf64_Shdr>(header.e_shoff + section.sh_link * size_t{header.e_shentsize});
      if (section.sh_type == SHT_DYNSYM) read_symbols(section, names);
      if (section.sh_type == SHT_DYNAMIC) read_needed(section, names);
      if (section.sh_flags & SHF_ALLOC) size += section.sh_size;
    }
  }

  Names visible, undefined, needed;
  size_t size = 0;  // bytes that are loaded

 private:
  template <typename T>
  T at(size_t offset) const {
    T value;
    std::memcpy(&value, image_.data() + offset, sizeof value);
    return value;
  }
  std::string name(const Elf64_Shdr& names, size_t index) const { return image_.data() + names.sh_offset + index; }

  void read_symbols(const Elf64_Shdr& section, const Elf64_Shdr& names) {
    for (size_t offset = sizeof(Elf64_Sym); offset < section.sh_size; offset += sizeof(Elf64_Sym)) {
      const auto symbol = at<Elf64_Sym>(section.sh_offset + offset);
      const bool weak = ELF64_ST_BIND(symbol.st_info) == STB_WEAK;
      const bool local = ELF64_ST_BIND(symbol.st_info) == STB_LOCAL;  // a section's, on Arm
      if (symbol.st_shndx != SHN_UNDEF && !local) visible.insert(name(names, symbol.st_name));
      if (symbol.st_shndx == SHN_UNDEF && !weak) undefined.insert(name(names, symbol.st_name));
    }
  }

  void read_needed(const Elf64_Shdr& section, const Elf64_Shdr& names) {
    for (size_t offset = 0; offset < section.sh_size; offset += sizeof(Elf64_Dyn)) {
      const auto entry = at<Elf64_Dyn>(section.sh_offset + offset);
      if (entry.d_tag == DT_NEEDED) needed.insert(name(names, entry.d_un.d_val));
    }
  }

  std::vector<char> image_;
};

bool from_platform(const std::string& name) {
  return name.starts_with("uci_") || name.starts_with("ubus_") || name.starts_with("blob");
}

class Exports : public testing::TestWithParam<const char*> {};

TEST_P(Exports, AreTheCatalogueAndTheSharedHelpers) {
  Names expected = kSharedHelpers;
  for (const Row& row : kCatalogue) expected.insert(row.name);
  EXPECT_EQ(Library(GetParam()).visible, expected);
}

TEST_P(Exports, NothingIsNeededButTheCLibraryAndThePlatform) {
  const Library library(GetParam());
  EXPECT_EQ(library.needed, Names{"libc.so.6"});
  void* const c_library = dlopen("libc.so.6", RTLD_NOW);
  for (const std::string& name : library.undefined) {
    if (from_platform(name)) continue;
    EXPECT_NE(dlsym(c_library, name.c_str()), nullptr) << name;
  }
  EXPECT_NE(dlopen(GetParam(), RTLD_NOW | RTLD_LOCAL), nullptr) << dlerror();
}

// Nothing of the world changes or is asked by these: texts, numbers, memory, this process itself, what the seam has
// opened, children that it has started.
const Names kHarmless = {
    "__ctype_b_loc", "__errno_location", "__isoc99_sscanf", "__stack_chk_fail", "clearerr", "close", "fcntl", "ferror",
    "fileno", "getc", "getrlimit", "geteuid", "htonl", "inet_aton", "inet_ntop", "isxdigit", "memchr", "memcmp",
    "memcpy", "memmove", "memset", "ntohl", "regexec", "regfree", "setvbuf", "signal", "snprintf", "sprintf", "stderr",
    "stpcpy", "strcasecmp", "strcat", "strchr", "strchrnul", "strcmp", "strcpy", "strcspn", "strerror", "strlen",
    "strncmp", "strncpy", "strnlen", "strspn", "strstr", "strtok_r", "strtol", "strtoll", "strtoul", "vsnprintf",
    "waitpid",
    // messages of the bus that were received
    "blob_buf_free", "blob_data", "blob_len", "blob_next", "blob_pad_len", "blobmsg_check_attr", "blobmsg_data",
    "blobmsg_data_len", "blobmsg_get_bool", "blobmsg_get_string", "blobmsg_get_u32", "blobmsg_get_u64", "blobmsg_type"};

// Whether calls of it come to this program, which has the seam in it.
bool is_taken_over(const std::string& name) {
  Dl_info of_symbol = {};
  Dl_info of_seam = {};
  return dladdr(dlsym(RTLD_DEFAULT, name.c_str()), &of_symbol) != 0 &&
         dladdr(reinterpret_cast<void*>(&seam::platform), &of_seam) != 0 && of_symbol.dli_fbase == of_seam.dli_fbase;
}

TEST_P(Exports, ReachTheWorldThroughTheSeamAlone) {
  for (const std::string& name : Library(GetParam()).undefined)
    EXPECT_NE(is_taken_over(name), kHarmless.contains(name)) << name;
}

#ifdef __aarch64__
TEST(Size, LeavesRoomInTheFlash) { EXPECT_LE(Library(SMALL_PLUGIN).size, 160U * 1024); }
#endif

INSTANTIATE_TEST_SUITE_P(EveryBuild, Exports, testing::Values(PLUGIN, SMALL_PLUGIN, DEBUG_PLUGIN));

}  // namespace
}  // namespace kova::test
