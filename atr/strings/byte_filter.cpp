// The copy stores every byte and then moves on only if it keeps that byte, so that no byte costs a
// branch.
#include "atr/strings/byte_filter.h"

#include <cstddef>
#include <cstdint>

#include "atr/frame/processor.h"
#include "atr/frame/words.h"

namespace atr {

ByteFilter::ByteFilter(char const* set) noexcept {
  kept_.fill(1);
  for (; *set != '\0'; ++set) {
    auto const byte = static_cast<unsigned char>(*set);
    kept_[byte] = 0;
    (byte < 0x80 ? droppedAscii_ : droppedOthers_)[byte & 0xF] |=
        static_cast<unsigned char>(1U << (byte >> 4 & 7U));
  }
}

// A word is loaded before anything is stored into its place, since the copy may be in place.
char* ByteFilter::copyByWords(char* out, char const* p, char const* end) const noexcept {
  for (; end - p >= kWord; p += kWord) {
    std::uint64_t word = loadWord(p);
    for (int i = 0; i < kWord; ++i, word >>= 8) {
      auto const byte = static_cast<unsigned char>(word);
      *out = static_cast<char>(byte);
      out += kept_[byte];
    }
  }
  for (; p != end; ++p) {
    *out = *p;
    out += kept_[static_cast<unsigned char>(*p)];
  }
  return out;
}

char* ByteFilter::copy(char* out, char const* p, char const* end) const noexcept {
  return hasByteShuffles() ? copyByShuffles(out, p, end) : copyByWords(out, p, end);
}

}  // namespace atr
