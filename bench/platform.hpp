// The platform's bare calls, each as a short program would make it.
#pragma once

#include <cstddef>
#include <string>

struct blob_attr;

namespace kova::bench {

// Reads package.section.option of a directory's packages, or of /etc/config, into `value`.
void read_option(const char* directory, const char* package, const char* section, const char* option, char* value);

// Loads a package and no more.
void load_package(const char* directory, const char* package);

// Writes and commits one option, "package.section.option".
void write_option(const char* directory, const char* path, const char* value);

// Calls a method of a bus object and parses its reply for the text `field`.
void call_bus(const char* object, const char* method, blob_attr* message, const char* field);

// The first line that a command prints.
void read_command(const char* command);

}  // namespace kova::bench
