// The canonical form of a dictionary.
#ifndef ATR_TOOLS_ATR_DICT_FORMAT_DICTIONARY_H
#define ATR_TOOLS_ATR_DICT_FORMAT_DICTIONARY_H

#include <optional>
#include <string>

#include "dictionary.h"

namespace dict {

/// The dictionary in its canonical form: its lines in their order, entries as entryLine writes
/// them, LF, and a newline at the end. The runtime shows the same texts.
/// @return nothing if something in it is lost or cut, which a canonical form would hide.
std::optional<std::string> formatted(Dictionary const& dictionary);

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_FORMAT_DICTIONARY_H
