// The commands. Each adds itself to the command line and answers, when it was chosen, the exit
// status.
#ifndef ATR_TOOLS_ATR_DICT_COMMANDS_H
#define ATR_TOOLS_ATR_DICT_COMMANDS_H

#include <CLI/CLI.hpp>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "messages.h"

namespace dict {

/// What to run for a command that was chosen. A failure is thrown as Failure.
using Action = std::function<int()>;

/// Has CLI11 tell its own texts in the language of the tool's messages.
/// @pre `app` has no options yet but for its help.
void speakTheUsersLanguage(CLI::App& app);

/// Adds a command: what its options fill, and the place to describe these. Its run() is the action.
template <class Command>
std::pair<std::shared_ptr<Command>, CLI::App*> addCommand(CLI::App& app, Action& action,
                                                          char const* name,
                                                          std::string const& description) {
  auto const command = std::make_shared<Command>();
  CLI::App* const sub = app.add_subcommand(name, description)->group(say("Commands"));
  speakTheUsersLanguage(*sub);
  sub->final_callback([command, &action] { action = [command] { return command->run(); }; });
  return {command, sub};
}

/// Adds the option for the file that a command writes, which it needs.
inline void addOutput(CLI::App& sub, std::string& file, char const* type,
                      std::string const& description) {
  sub.add_option("-o,--output", file, description)->type_name(type)->required();
}

/// Adds an option that takes one of some words. Its type is these words.
template <class Value>
void addChoice(CLI::App& sub, char const* name, Value& value, std::map<std::string, Value> values,
               std::string const& description) {
  std::vector<std::string> words;
  for (auto const& [word, meaning] : values) words.push_back(word);
  auto const take = [&value, values](std::string const& word) { value = values.at(word); };
  sub.add_option_function<std::string>(name, take, description)
      ->type_name(CLI::detail::join(words, "|"))
      ->check(CLI::IsMember(words).description(""));
}

/// Adds an argument for words of any look and number, such as messages. Behind `--` they may begin
/// with a hyphen. The command has no other argument.
CLI::Option* addWords(CLI::App& sub, char const* name, std::string const& description,
                      std::vector<std::string>& words);

/// Takes the place of `action` when the command is chosen. What the options fill lives as long as
/// the action.
void addCheck(CLI::App& app, Action& action);
void addExplain(CLI::App& app, Action& action);
void addFormat(CLI::App& app, Action& action);
void addStats(CLI::App& app, Action& action);
void addPseudo(CLI::App& app, Action& action);
void addRecord(CLI::App& app, Action& action);
void addPoCommands(CLI::App& app, Action& action);
void addRules(CLI::App& app, Action& action);

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_COMMANDS_H
