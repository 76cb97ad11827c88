// A device's files at one time, and what has changed since.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "seam/platform.hpp"

namespace seam {

using Texts = std::map<std::string, std::string>;  // of files by path, or of options

// What is in one of them only, or another text in each.
struct Difference {
  std::string path;
  std::optional<std::string> before;
  std::optional<std::string> after;
};
std::vector<Difference> differences(const Texts& before, const Texts& after);

class Snapshot {
 public:
  // All that is below these places of this machine.
  explicit Snapshot(const std::vector<std::filesystem::path>& places);
  // All that the simulated router's reset makes anew.
  static Snapshot of_lab();

  const Texts& texts() const { return texts_; }

  // Puts every file and directory back as it was. Throws what std::filesystem and std::ios_base throw.
  void restore() const;
  void restore(const Snapshot& now) const;  // where it is known what is there

  bool operator==(const Snapshot& other) const = default;

 private:
  void note(const std::filesystem::path& path);

  std::vector<std::filesystem::path> places_;
  Texts texts_;
  std::map<std::string, std::filesystem::perms> permissions_;  // of the files
  std::set<std::filesystem::path> directories_;
};

// The files directly in the directories that handlers use, by their paths on the router; the agent's recorded commands,
// which are work that waits and may have passwords in them, are not among them, nor is what is too large.
Texts kept_files(const Platform& of = platform());

std::string read_file(const std::filesystem::path& file);                     // empty where none can be read
void write_file(const std::filesystem::path& file, const std::string& text);  // throws std::system_error

// "package.section.option" and its value, "package.section" and its type: what libuci reads in a package's text, and in
// that of uncommitted changes of it.
Texts options_of(const std::string& package, const std::string& text, const std::string& changes = "");

// An option's value; a list's elements with a blank between them.
std::string value_of(const uci_option& option);

}  // namespace seam
