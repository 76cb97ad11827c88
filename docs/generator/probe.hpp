// Calls handlers on the simulated router, and sees what they do.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "device/agent.hpp"

namespace kova::documents {

// The row's parameter, at instance `number` of every table.
kovadm::Parameter at_instance(const kovadm::Row& row, int number);

// Puts the router back to its factory state.
void reset_router();

// Leaves results of those tests that a server can ask for and that make the instances of tables.
void make_results();

// What one get went to, and what it answered.
struct Reading {
  std::vector<std::string> sources;  // as the documents show them, each once
  std::vector<std::string> commands;
  std::optional<std::string> value;  // nothing when the handler failed
};
Reading read(kovadm::Agent& agent, const kovadm::Parameter& parameter);

// What one set had the shell do.
struct Commands {
  bool accepted = false;
  std::vector<std::string> run;       // at once
  std::vector<std::string> recorded;  // by the agent, later

  bool none() const { return run.empty() && recorded.empty(); }
};
Commands set(kovadm::Agent& agent, const kovadm::Parameter& parameter, const std::string& value);

// All that one set did.
struct Effects {
  std::string value;
  Commands commands;
  std::vector<std::string> changed;  // options and files; without the agent's copies of changes
  std::vector<std::string> bits;     // raised

  bool lasting() const { return !changed.empty() || !commands.recorded.empty(); }
  bool none() const { return commands.none() && changed.empty() && bits.empty(); }
};

// Every parameter that can be set takes one of these. Those that tell themselves apart in a command line come first.
const std::vector<std::string>& accepted_texts();

// The first set of those texts, as far as they are of the row's type, that was accepted and left something; without any
// such, one that was accepted and did something, or just accepted; nothing when all were refused. The router is in
// factory state before and after.
std::optional<Effects> accepted_set(kovadm::Agent& agent, const kovadm::Row& row);

// As code in a cell of a table, whatever it holds.
std::string code(const std::string& text);

// Cells below each other in one.
std::string joined(const std::vector<std::string>& cells);

}  // namespace kova::documents
