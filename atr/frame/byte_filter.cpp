// The copy stores more than it keeps, and moves on by what it keeps: so no byte costs a branch. A
// vector's bytes are told apart by two looks into tables of sixteen, and closed up by a third.
#include "atr/frame/byte_filter.h"

#include <cstddef>
#include <cstdint>

#include "atr/frame/words.h"

#if defined(__x86_64__)
#include <immintrin.h>
#endif

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

// Loads a word before it stores into it.
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

#if defined(__x86_64__)

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
__attribute__((target("ssse3"))) void storeChosen(char* out, __m128i bytes,
                                                  unsigned int choice) noexcept {
  __m128i const places = _mm_loadl_epi64(reinterpret_cast<__m128i const*>(&kChosen[choice]));
  _mm_storel_epi64(reinterpret_cast<__m128i*>(out), _mm_shuffle_epi8(bytes, places));
}

}  // namespace

// A shuffle by a byte goes by its low half, and gives 0 where its high bit is set.
__attribute__((target("ssse3,popcnt"))) char* ByteFilter::copyByVectors(
    char* out, char const* p, char const* end) const noexcept {
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

char* ByteFilter::copy(char* out, char const* p, char const* end) const noexcept {
  bool const hasVectors = __builtin_cpu_supports("ssse3") && __builtin_cpu_supports("popcnt");
  return hasVectors ? copyByVectors(out, p, end) : copyByWords(out, p, end);
}

#else

char* ByteFilter::copy(char* out, char const* p, char const* end) const noexcept {
  return copyByWords(out, p, end);
}

#endif

}  // namespace atr
