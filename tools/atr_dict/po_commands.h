// The commands that need libgettextpo.
#ifndef ATR_TOOLS_ATR_DICT_PO_COMMANDS_H
#define ATR_TOOLS_ATR_DICT_PO_COMMANDS_H

#include "commands.h"

namespace dict {

void addToPo(CLI::App& app, Action& action);
void addFromPo(CLI::App& app, Action& action);
void addToPot(CLI::App& app, Action& action);

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_PO_COMMANDS_H
