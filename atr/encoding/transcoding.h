// Transcoding between UTF-8 and the encodings that the library knows by number.
//
// Nobody may change the process locale between the measuring and the writing call of one text.
#ifndef ATR_ENCODING_TRANSCODING_H
#define ATR_ENCODING_TRANSCODING_H

#include "atr/frame/export.h"

/// Selects an encoding. Any other number behaves as EncodingNone.
using EncodingId = int;
enum : EncodingId {
  EncodingNone = 0,       ///< decodes no text but the empty one, and has a form for no character
  EncodingLocale = 1,     ///< the multi-byte encoding of the process locale in force at the call
  EncodingUtf8 = 2,       ///< UTF-8 in its wide form, up to six bytes a character
  EncodingSingleByte = 3  ///< a byte a character, its value being the code (ISO 8859-1)
};

/// True if the NUL-terminated `text` is good as a whole; EncodingNone refuses the empty text too,
/// and EncodingSingleByte any byte from 0x7F to 0x9F.
ATR_API bool atr_encoding_validate(int encoding, unsigned char const* text);

/// Converts NUL-terminated UTF-8 to `encoding`. With a null `out` it only measures: call it so,
/// take the result plus one bytes, and call it again.
/// @pre `text` is not null; `out` has that room. `out` may be `text` itself if the output is never
/// ahead
///   of the input, as when UTF-8 becomes single bytes. Any other overlap is not allowed.
/// @param substitute the byte that stands for a character the encoding has no form for; 0 fails.
/// @return bytes of output without its terminator; -1 if the text is not UTF-8 or the output
///   would have INT_MAX bytes or more, -2 if a character has no form and there is no substitute,
///   whichever comes first in the text. What was written before a failure stays, without a
///   terminator.
ATR_API int atr_utf8_to_encoding(int encoding, unsigned char* out, unsigned char const* text,
                                 char substitute);

/// Converts a NUL-terminated text of `encoding` to UTF-8, in the same manner. In place, only texts
/// that do not grow: ASCII, or UTF-8 itself.
/// @return bytes of output without its terminator; -1 if a character cannot be decoded.
ATR_API int atr_utf8_from_encoding(unsigned char* out, int encoding, unsigned char const* text);

#endif  // ATR_ENCODING_TRANSCODING_H
