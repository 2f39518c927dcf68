// The commands. Each adds itself to the command line and answers, when it was chosen, the exit
// status.
#ifndef ATR_TOOLS_ATR_DICT_COMMANDS_H
#define ATR_TOOLS_ATR_DICT_COMMANDS_H

#include <CLI/CLI.hpp>
#include <functional>

namespace dict {

/// What to run for a command that was chosen. A failure is thrown as Failure.
using Action = std::function<int()>;

/// Takes the place of `action` when the command is chosen. What the options fill lives as long as
/// the action.
void addCheck(CLI::App& app, Action& action);
void addExplain(CLI::App& app, Action& action);
void addFormat(CLI::App& app, Action& action);
void addStats(CLI::App& app, Action& action);
void addPseudo(CLI::App& app, Action& action);
void addPoCommands(CLI::App& app, Action& action);
void addRules(CLI::App& app, Action& action);

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_COMMANDS_H
