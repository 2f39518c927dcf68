// Entries as the tool writes them.
#ifndef ATR_TOOLS_ATR_DICT_ENTRY_TEXT_H
#define ATR_TOOLS_ATR_DICT_ENTRY_TEXT_H

#include <optional>
#include <string>
#include <string_view>

namespace dict {

/// The canonical line of an entry, with its newline: escapes only for control characters,
/// backslashes, characters that nobody sees, and what would end a key.
/// @param key, text decoded, without a NUL.
/// @return nothing if the line would be too long for the reader.
std::optional<std::string> entryLine(std::string_view key, std::string_view text);

/// The escaped form of a key or a text by itself.
std::string escaped(std::string_view text);

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_ENTRY_TEXT_H
