// A string under construction, whose maker writes the text directly into the body.
#ifndef ATR_STRINGS_FRESH_TEXT_H
#define ATR_STRINGS_FRESH_TEXT_H

#include "atr/strings/string.h"

namespace atr {

/// A new string of its own that is being filled; finish() turns it into an atr_String.
class FreshText : private atr_String {
 public:
  /// @param capacity the largest length of the text, in bytes.
  explicit FreshText(int capacity) : atr_String(capacity, PreSize) {}

  /// The body: `capacity` bytes and one for the NUL.
  char* begin() noexcept { return body; }

  /// Ends the text at `end`, a position in the body, and hands the string over.
  atr_String finish(char* end) noexcept {
    *end = '\0';
    rep->length = static_cast<int>(end - body);
    return static_cast<atr_String&&>(*this);
  }
};

}  // namespace atr

#endif  // ATR_STRINGS_FRESH_TEXT_H
