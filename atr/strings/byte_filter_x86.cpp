// The byte filter's copy for x86 processors that shuffle bytes. A table of sixteen bytes, looked up
// by the low nibble of sixteen bytes at once, tells for which high nibbles each of them is dropped;
// there is one such table for ASCII and one for the rest. Another shuffle closes the gaps.
#include <immintrin.h>

#include <cstddef>

#include "atr/frame/compiler.h"
#include "atr/frame/words.h"
#include "atr/strings/byte_filter.h"

namespace atr {

namespace {

constexpr std::ptrdiff_t kVector = sizeof(__m128i);

using Places = std::array<unsigned char, kWord>;

// For each choice of eight bytes the places of those that are chosen, one after another.
constexpr std::array<Places, 256> kChosen = [] {
  std::array<Places, 256> chosen{};
  for (unsigned int choice = 0; choice < chosen.size(); ++choice) {
    std::size_t count = 0;
    for (unsigned char place = 0; place < kWord; ++place) {
      if ((choice >> place & 1U) != 0) chosen[choice][count++] = place;
    }
  }
  return chosen;
}();

__m128i load(void const* p) noexcept { return _mm_loadu_si128(static_cast<__m128i const*>(p)); }

// Stores the chosen ones of the vector's first eight bytes, and what they leave of a word.
ATR_TARGET("ssse3") void storeChosen(char* out, __m128i bytes, unsigned int choice) noexcept {
  __m128i const places = _mm_loadl_epi64(reinterpret_cast<__m128i const*>(&kChosen[choice]));
  _mm_storel_epi64(reinterpret_cast<__m128i*>(out), _mm_shuffle_epi8(bytes, places));
}

}  // namespace

// A shuffle by a byte goes by its low half, and gives 0 where its high bit is set.
ATR_TARGET("ssse3,popcnt")
char* ByteFilter::copyByShuffles(char* out, char const* p, char const* end) const noexcept {
  __m128i const ascii = load(&droppedAscii_);
  __m128i const others = load(&droppedOthers_);
  __m128i const bits = _mm_set1_epi64x(static_cast<long long>(0x8040201008040201));
  __m128i const highBit = _mm_set1_epi8(static_cast<char>(0x80));
  __m128i const lowHalf = _mm_set1_epi8(0x0F);
  for (; end - p >= kVector; p += kVector) {
    __m128i const bytes = load(p);
    __m128i const low = _mm_and_si128(bytes, _mm_or_si128(highBit, lowHalf));
    __m128i const high = _mm_and_si128(_mm_srli_epi16(bytes, 4), lowHalf);
    __m128i const rows = _mm_or_si128(_mm_shuffle_epi8(ascii, low),
                                      _mm_shuffle_epi8(others, _mm_xor_si128(low, highBit)));
    __m128i const dropped = _mm_and_si128(rows, _mm_shuffle_epi8(bits, high));
    auto const kept =
        static_cast<unsigned int>(_mm_movemask_epi8(_mm_cmpeq_epi8(dropped, _mm_setzero_si128())));
    int const first = _mm_popcnt_u32(kept & 0xFF);
    storeChosen(out, bytes, kept & 0xFF);
    storeChosen(out + first, _mm_srli_si128(bytes, kWord), kept >> 8);
    out += first + _mm_popcnt_u32(kept >> 8);
  }
  return copyByWords(out, p, end);
}

}  // namespace atr
