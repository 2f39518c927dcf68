// Batches by the locale's own functions, for codesets in which each character stands for one code.
#ifndef ATR_ENCODING_LOCALE_BATCHES_H
#define ATR_ENCODING_LOCALE_BATCHES_H

#include "atr/encoding/batch.h"

namespace atr {

/// Refused characters come in clusters, and a refused batch is work that is done twice: the rows
/// convert this many characters before encodeForLocale is tried again.
constexpr int kLocalePause = 16;

/// UTF-8 to a locale of platform::Codeset::stateless, many characters by one call of the runtime.
Position encodeForLocale(Position at, unsigned char const* end) noexcept;

/// From such a locale to UTF-8, likewise.
Position decodeFromLocale(Position at, unsigned char const* end) noexcept;

}  // namespace atr

#endif  // ATR_ENCODING_LOCALE_BATCHES_H
