// One escape of a dictionary's key or text.
#ifndef ATR_TRANSLATION_ESCAPES_H
#define ATR_TRANSLATION_ESCAPES_H

namespace atr {

struct Escape {
  char const* end;  // behind the sequence, or null if it is none
  char byte;        // what it stands for
};

/// Reads the escape whose backslash stands in front of `p`, in a NUL-terminated text.
Escape decodeEscape(char const* p) noexcept;

}  // namespace atr

/// Decodes the escapes of a NUL-terminated text in place; it never grows.
void atr_trDecodeEscapes(char* text) noexcept;

#endif  // ATR_TRANSLATION_ESCAPES_H
