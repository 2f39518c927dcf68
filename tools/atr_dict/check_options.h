// What `check` looks at, for the commands that judge dictionaries.
#ifndef ATR_TOOLS_ATR_DICT_CHECK_OPTIONS_H
#define ATR_TOOLS_ATR_DICT_CHECK_OPTIONS_H

#include <string>
#include <vector>

#include "findings.h"

namespace dict {

/// The rules of these names. @pre they exist.
RuleSet rulesNamed(std::vector<std::string> const& names);

/// Everything that a dictionary tells by itself.
void checkAll(Findings& findings);

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_CHECK_OPTIONS_H
