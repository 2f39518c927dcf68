// UTF-8 at character level, in its wide form: one to six bytes, codes of up to 31 bits. Overlong
// forms and surrogates are taken as they come, so this is no security filter. Callable from any
// thread.
#ifndef ATR_ENCODING_UTF8_H
#define ATR_ENCODING_UTF8_H

#include "atr/frame/export.h"

/// Bytes of the character that begins at `text`, told by its first byte alone: 1 to 6, or 0 for a
/// byte that cannot begin one. A NUL is a character of one byte.
ATR_API int atr_utf8_len(unsigned char const* text);

/// Bytes that atr_utf8_from_ucs4 writes for `code`: 1 to 6.
ATR_API int atr_utf8_len(unsigned int code);

/// The code of the character at `text`, or 0xFFFFFFFF if a byte of it is bad. Reads no byte behind
/// the first bad one, and so nothing behind a NUL.
/// @param length where to put what atr_utf8_len gives for `text`, also on failure; may be null.
ATR_API unsigned int atr_utf8_to_ucs4(unsigned char const* text, int* length);

/// Writes the form of `code`, without a terminator.
/// @pre `out` has room for atr_utf8_len(code) bytes.
/// @return the bytes written. From 0x80000000 up they are six that no decoder takes.
ATR_API int atr_utf8_from_ucs4(unsigned char* out, unsigned int code);

#endif  // ATR_ENCODING_UTF8_H
