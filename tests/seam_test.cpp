// That the seam takes over all through which the built library reaches the world.
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

namespace kova::test {
namespace {

using Names = std::set<std::string>;

// A library's file.
class Library {
 public:
  explicit Library(const char* path) {
    std::ifstream file(path, std::ios::binary);
    image_.assign(std::istreambuf_iterator<char>(file), {});
  }

  // The symbols that it has from elsewhere.
  Names undefined() const {
    Names names;
    const auto header = at<Elf64_Ehdr>(0);
    for (size_t i = 0; i < header.e_shnum; ++i) {
      const auto section = at<Elf64_Shdr>(header.e_shoff + i * size_t{header.e_shentsize});
      if (section.sh_type != SHT_DYNSYM) continue;
      const auto texts = at<Elf64_Shdr>(header.e_shoff + section.sh_link * size_t{header.e_shentsize});
      for (size_t offset = sizeof(Elf64_Sym); offset < section.sh_size; offset += sizeof(Elf64_Sym)) {
        const auto symbol = at<Elf64_Sym>(section.sh_offset + offset);
        const bool weak = ELF64_ST_BIND(symbol.st_info) == STB_WEAK;
        if (symbol.st_shndx == SHN_UNDEF && !weak) names.insert(image_.data() + texts.sh_offset + symbol.st_name);
      }
    }
    return names;
  }

 private:
  template <typename T>
  T at(size_t offset) const {
    T value;
    std::memcpy(&value, image_.data() + offset, sizeof value);
    return value;
  }

  std::vector<char> image_;
};

// Nothing of the world changes or is asked by these: texts, numbers, memory, this process itself, what the seam has
// opened, children that it has started.
const Names kHarmless = {
    "__ctype_b_loc", "__errno_location", "__isoc99_sscanf", "__stack_chk_fail", "clearerr", "clock_gettime", "close",
    "fcntl", "ferror", "fileno", "fread", "free", "getc", "getrlimit", "geteuid", "htonl", "inet_aton", "inet_ntop",
    "isxdigit", "malloc", "memchr", "memcmp", "memcpy", "memmove", "memset", "ntohl", "poll", "realloc", "regexec",
    "regfree", "setvbuf", "signal", "snprintf", "sprintf", "stderr", "stpcpy", "strcasecmp", "strcat", "strchr",
    "strchrnul", "strcmp", "strcpy", "strcspn", "strerror", "strlen", "strncmp", "strncpy", "strnlen", "strspn",
    "strstr", "strtok_r", "strtol", "strtoll", "strtoul", "vsnprintf", "waitpid",
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

class Seam : public testing::TestWithParam<const char*> {};

TEST_P(Seam, TakesOverAllThatReachesTheWorld) {
  const Names undefined = Library(GetParam()).undefined();
  EXPECT_TRUE(undefined.contains("popen"));
  for (const std::string& name : undefined) EXPECT_NE(is_taken_over(name), kHarmless.contains(name)) << name;
}

INSTANTIATE_TEST_SUITE_P(EveryBuild, Seam, testing::Values(PLUGIN, SMALL_PLUGIN, DEBUG_PLUGIN));

}  // namespace
}  // namespace kova::test
