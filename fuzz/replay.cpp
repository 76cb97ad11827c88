// Feeds a target with the files of a directory.
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size);

int main(int, char** argv) {
  for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
    std::cout << entry.path().filename() << std::endl;
    std::ifstream file(entry.path(), std::ios::binary);
    const std::vector<char> input(std::istreambuf_iterator<char>(file), {});
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(input.data()), input.size());
  }
}
