// A string whose maker writes its text straight into the body.
#ifndef ATR_STRINGS_FRESH_TEXT_H
#define ATR_STRINGS_FRESH_TEXT_H

#include "atr/strings/string.h"

namespace atr {

/// Room for a text in one representation of its own, until it is finished.
class FreshText : private atr_String {
 public:
  /// @param capacity bytes that the text may come to.
  explicit FreshText(int capacity) : atr_String(capacity, PreSize) {}

  /// The body: room for the capacity and a NUL.
  char* begin() noexcept { return body; }

  /// Ends the text before `end`, a place in the room, and gives it away.
  atr_String finish(char* end) noexcept {
    *end = '\0';
    rep->length = static_cast<int>(end - body);
    return static_cast<atr_String&&>(*this);
  }
};

}  // namespace atr

#endif  // ATR_STRINGS_FRESH_TEXT_H
