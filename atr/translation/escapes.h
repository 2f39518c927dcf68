// One escape of a dictionary's key or text.
#ifndef ATR_TRANSLATION_ESCAPES_H
#define ATR_TRANSLATION_ESCAPES_H

namespace atr {

struct Escape {
  char const* end;  // behind the escape, or null if there is no escape
  char byte;        // the byte it stands for
};

/// Reads the escape whose backslash is the byte before `p`, in a NUL-terminated text.
Escape decodeEscape(char const* p) noexcept;

}  // namespace atr

/// Decodes the escapes of a NUL-terminated text in place. The text never grows.
void atr_trDecodeEscapes(char* text) noexcept;

#endif  // ATR_TRANSLATION_ESCAPES_H
