// The byte filter's copy for processors of which no shuffles are known.
#include "atr/strings/byte_filter.h"

namespace atr {

char* ByteFilter::copyByShuffles(char* out, char const* p, char const* end) const noexcept {
  return copyByWords(out, p, end);
}

}  // namespace atr
