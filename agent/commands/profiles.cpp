#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <set>

#include "commands/command.hpp"
#include "commands/invalid.hpp"
#include "device/walk.hpp"
#include "model/profile.hpp"
#include "output/progress.hpp"
#include "output/table.hpp"

namespace kovadm {
namespace {

enum class Answer { NO_INSTANCE, ANSWERS, FAULT };

// A value that the device answered with.
struct Value {
  Parameter parameter;
  std::string text;
};

// What the device answers for the paths of the catalogue that were asked for.
using Answers = std::map<std::string, Answer>;

std::string to_text(Answer answer) {
  switch (answer) {
    case Answer::NO_INSTANCE:
      return "no instance";
    case Answer::ANSWERS:
      return "answers";
    case Answer::FAULT:
      return "fault";
  }
  return "";
}

// "Time:1", or "Time" for its every version.
std::vector<Profile> chosen_profiles(const std::vector<std::string>& names) {
  std::vector<Profile> chosen;
  for (const std::string& name : names) {
    const std::size_t others = chosen.size();
    std::copy_if(profiles().begin(), profiles().end(), std::back_inserter(chosen),
                 [&](const Profile& profile) { return profile.name == name || profile.name.starts_with(name + ":"); });
    if (chosen.size() == others) throw SetupError("no parameter of a profile \"" + name + "\" is served");
  }
  return names.empty() ? profiles() : chosen;
}

// The object below the root that has the parameter, with its dot; the parameter where it stands there itself.
std::string top_object(const std::string& path) { return path.substr(0, path.find('.', path.find('.') + 1) + 1); }

// A parameter answers when it does so in all instances that there are.
Answers ask(Agent& agent, const std::vector<Profile>& chosen, std::vector<Value>& values) {
  Answers answers;
  std::set<std::string> objects;
  for (const Profile& profile : chosen) {
    for (const Requirement& requirement : profile.requirements) {
      if (requirement.row == nullptr) continue;
      answers.emplace(requirement.path, Answer::NO_INSTANCE);
      const std::string object = top_object(requirement.path);
      objects.insert(object.empty() ? requirement.path : object);
    }
  }
  Progress progress;
  const Look look(agent);
  for (const std::string& object : objects) {
    walk(agent, object, [&](const Parameter& parameter) {
      const auto answer = answers.find(catalogue_path(parameter.path));
      if (answer == answers.end() || answer->second == Answer::FAULT) return true;
      progress.show(parameter.path);
      const auto got = agent.get(parameter);
      const auto* value = std::get_if<std::string>(&got);
      answer->second = value != nullptr ? Answer::ANSWERS : Answer::FAULT;
      if (value != nullptr) values.push_back({parameter, *value});
      return value != nullptr;
    });
  }
  return answers;
}

// Of one profile.
class Report {
 public:
  Report(const Profile& profile, const Answers* answers) : profile_(profile), answers_(answers) {}

  std::vector<std::string> summary() const {
    std::vector<std::string> cells = {
        profile_.model, profile_.name,
        std::to_string(profile_.served()) + " of " + std::to_string(profile_.requirements.size())};
    if (answers_ != nullptr) cells.push_back(std::to_string(answering()) + " answer");
    cells.emplace_back(profile_.whole() ? "whole" : "");
    return cells;
  }

  std::vector<std::vector<std::string>> parameters() const {
    std::vector<std::vector<std::string>> rows;
    for (const Requirement& requirement : profile_.requirements) {
      std::vector<std::string>& cells = rows.emplace_back();
      cells = {"  " + requirement.path, requirement.row != nullptr ? to_text(requirement.row->access) : "missing"};
      if (requirement.row == nullptr) continue;
      if (answers_ != nullptr) cells.push_back(to_text(answers_->at(requirement.path)));
      if (requirement.access_differs())
        cells.push_back("required " + requirement.access + ": " + access_reason(requirement.path));
    }
    return rows;
  }

  Json document(bool in_detail) const {
    Json json = {{"model", profile_.model},
                 {"name", profile_.name},
                 {"required", profile_.requirements.size()},
                 {"served", profile_.served()},
                 {"whole", profile_.whole()}};
    if (answers_ != nullptr) json["answering"] = answering();
    if (!in_detail) return json;
    json["parameters"] = Json::array();
    for (const Requirement& requirement : profile_.requirements) json["parameters"].push_back(to_json(requirement));
    return json;
  }

 private:
  std::ptrdiff_t answering() const {
    return std::count_if(profile_.requirements.begin(), profile_.requirements.end(),
                         [this](const Requirement& requirement) {
                           return requirement.row != nullptr && answers_->at(requirement.path) == Answer::ANSWERS;
                         });
  }

  Json to_json(const Requirement& requirement) const {
    Json json = {{"path", requirement.path}, {"required", requirement.access}, {"access", Json()}};
    if (requirement.row == nullptr) return json;
    json["access"] = to_text(requirement.row->access);
    if (requirement.access_differs()) json["reason"] = access_reason(requirement.path);
    if (answers_ != nullptr) json["answer"] = to_text(answers_->at(requirement.path));
    return json;
  }

  const Profile& profile_;
  const Answers* answers_;
};

void tell_table(const std::vector<std::vector<std::string>>& table, Output& output) {
  for (const std::string& line : table_lines(table)) output.line(line);
}

int profiles(Agent* agent, const std::vector<std::string>& names, Output& output) {
  const std::vector<Profile> chosen = chosen_profiles(names);
  Answers answers;
  std::vector<Value> values;
  if (agent != nullptr) answers = ask(*agent, chosen, values);
  output.document()["profiles"] = Json::array();
  std::vector<std::vector<std::string>> table;
  for (const Profile& profile : chosen) {
    const Report report(profile, agent != nullptr ? &answers : nullptr);
    output.document()["profiles"].push_back(report.document(!names.empty()));
    table.push_back(report.summary());
    if (names.empty()) continue;
    tell_table(table, output);
    tell_table(report.parameters(), output);
    table.clear();
  }
  tell_table(table, output);
  for (const Value& value : values) tell_if_invalid(value.parameter, value.text, output);
  return output.finish();
}

Run define(CLI::App& line) {
  struct Options {
    std::vector<std::string> names;
    bool live = false;
  };
  auto options = std::make_shared<Options>();
  line.add_option("NAME", options->names, "A profile, to be told of parameter by parameter");
  line.add_flag("--live", options->live, "Ask the device too whether the parameters answer");
  return [options](Context& context) {
    return profiles(options->live ? &context.agent_alone() : nullptr, options->names, context.output());
  };
}

}  // namespace

const Command kProfiles = {"profiles", "What is served of the published data models' profiles", true, define};

}  // namespace kovadm
