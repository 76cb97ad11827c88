// The bus's answers, kept in files: /etc/lab/bus/OBJECT/METHOD.json.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "json.hpp"
#include "places.hpp"

namespace lab {

// nullopt when there is no bus: the directory is missing or cannot be read.
std::optional<std::vector<std::string>> bus_objects();

// An answer: a bus status, and for success the reply's messages, mostly one.
struct BusAnswer {
  int status;
  std::vector<Json> replies;
};

// The answer to a call. A file is one case or an array of cases, of which the first that matches counts:
//   {"when": {"name": "br-lan"}, "reply": {...}}   "when" (optional): members that the request must have
//   {"when": {...}, "replies": [{...}, {...}]}     a reply in several messages
//   {"status": 7}                                  fails with this bus status
//   {"script": "/path/program"}                    what the program prints, run with the request as its argument
// An object with none of these members is itself the reply.
BusAnswer bus_answer(const std::string& object, const std::string& method, const Json& request);

}  // namespace lab
