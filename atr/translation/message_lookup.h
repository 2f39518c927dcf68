// The rule that turns a message key into the text to show. atr_raw and messages use it.
#ifndef ATR_TRANSLATION_MESSAGE_LOOKUP_H
#define ATR_TRANSLATION_MESSAGE_LOOKUP_H

#include <cstddef>

namespace atr {

/// The text of a key: either a translation in the table, valid until the table is released, or a
/// piece of the key. A piece that has UTF-8 beyond ASCII must first be converted to the encoding of
/// the locale: this is left to write(), so that the lookup itself takes no memory.
struct MessageText {
  char const* text;
  std::size_t bytes;  ///< the length of `text`, which need not end in a NUL there
  int encodedBytes;   ///< the length of the converted form, or 0 if `text` is shown as it is

  /// Writes the converted form, which has no NUL within it, and a NUL behind it.
  /// @pre `out` has encodedBytes + 1 bytes, and the locale is that of the lookup.
  void write(char* out) const noexcept;
};

}  // namespace atr

/// Looks `key` up. The result may point into it. @pre `key` is not null.
atr::MessageText atr_LookupMessage(char const* key) noexcept;

#endif  // ATR_TRANSLATION_MESSAGE_LOOKUP_H
