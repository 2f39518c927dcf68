// Texts that look translated and can still be read.
#ifndef ATR_TOOLS_ATR_DICT_PSEUDO_TEXT_H
#define ATR_TOOLS_ATR_DICT_PSEUDO_TEXT_H

#include <string>
#include <string_view>

namespace dict {

/// The pseudo translation of a key: the test marker, the text with accents and its conversions as
/// they are, a third more of it, and the end punctuation.
std::string pseudoText(std::string_view key);

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_PSEUDO_TEXT_H
