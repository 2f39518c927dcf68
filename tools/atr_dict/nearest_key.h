// The key of a dictionary that somebody may have meant.
#ifndef ATR_TOOLS_ATR_DICT_NEAREST_KEY_H
#define ATR_TOOLS_ATR_DICT_NEAREST_KEY_H

#include <string>
#include <string_view>

#include "dictionary.h"

namespace dict {

struct NearKey {
  enum Kind { none, otherTail, otherEscape, otherBlank, similar };
  Kind kind = none;
  int line = 0;
  std::string_view rawKey;
};

/// The first entry whose key differs by its tail, by an escape, by blanks or case, or else the one
/// that takes the fewest changes, up to a third of its bytes.
NearKey nearestKey(Dictionary const& dictionary, std::string_view key);

/// Bytes put in, taken out or exchanged to make one text of the other.
std::size_t distance(std::string_view a, std::string_view b);

/// A key without white space and in lower case, as far as ASCII goes.
std::string folded(std::string_view key);

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_NEAREST_KEY_H
