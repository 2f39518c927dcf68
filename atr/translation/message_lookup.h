// The rule that turns a message key into the text to show, for atr_raw and for messages.
#ifndef ATR_TRANSLATION_MESSAGE_LOOKUP_H
#define ATR_TRANSLATION_MESSAGE_LOOKUP_H

#include <cstddef>

namespace atr {

/// The text of a key: a translation in the table, good until its release, or a piece of the key. A
/// piece that is UTF-8 beyond ASCII has to be written out in the encoding of the locale first. The
/// rule itself takes no memory.
struct MessageText {
  char const* text;
  std::size_t bytes;  ///< of `text` that count
  int encodedBytes;   ///< as which they are to be written, or 0 if the text stands as it is

  /// Writes the encoded form, which holds no NUL, and a NUL behind it.
  /// @pre `out` has encodedBytes + 1 bytes, and the locale is that of the lookup.
  void write(char* out) const noexcept;
};

}  // namespace atr

/// @pre `key` is not null; it is borrowed as long as the result is in use.
atr::MessageText atr_LookupMessage(char const* key) noexcept;

#endif  // ATR_TRANSLATION_MESSAGE_LOOKUP_H
