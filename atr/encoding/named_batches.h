// Batches between encodings that are known by name: UTF-8, and a byte a character.
#ifndef ATR_ENCODING_NAMED_BATCHES_H
#define ATR_ENCODING_NAMED_BATCHES_H

#include "atr/encoding/batch.h"

namespace atr {

/// UTF-8 to UTF-8. Takes strict forms, see strict_utf8.h.
Position copyUtf8(Position at, unsigned char const* end) noexcept;

/// UTF-8 to a byte a character. Takes the shortest forms of codes below 0x100.
Position narrowUtf8(Position at, unsigned char const* end) noexcept;

/// A byte a character to UTF-8. Takes everything.
Position widenToUtf8(Position at, unsigned char const* end) noexcept;

}  // namespace atr

#endif  // ATR_ENCODING_NAMED_BATCHES_H
