// Room for what the store is about to write: the platform's commit does not notice that a write failed, and puts a cut
// file in the place of a whole one.
#pragma once

#include <uci.h>

#include <cstdint>

namespace kova {

// The bytes that a value takes in a file of the store, between its quotes.
uint64_t quoted_size(const char* value);

// The bytes that a package takes as a file, written as the platform writes it.
uint64_t file_size(const uci_package& package);

// Whether changes of the package by others wait to be committed.
bool others_wait(const char* package);

// Whether there is room for a package's new file of `size` bytes in its directory, and for the change itself of
// `change` bytes in the directory for temporary files, where the platform keeps it for the time of a commit. Logged
// when there is none; true where a file system cannot tell.
bool has_room(const char* directory, uint64_t size, uint64_t change);

}  // namespace kova
