// The output may be the text itself as long as it does not grow: no store goes beyond what has been
// read.
#include "atr/encoding/named_batches.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "atr/encoding/chunks.h"
#include "atr/encoding/strict_utf8.h"
#include "atr/encoding/utf8_walk.h"
#include "atr/frame/processor.h"
#include "atr/frame/words.h"

namespace atr {

namespace {

// Passes on the bytes up to `to` as they are.
Position copyTo(Position at, unsigned char const* to) noexcept {
  auto const bytes = static_cast<std::size_t>(to - at.text);
  if (at.out != nullptr) {
    std::memmove(at.out, at.text, bytes);
    at.out += bytes;
  }
  return {to, at.out, at.total + bytes};
}

}  // namespace

Position copyUtf8(Position at, unsigned char const* end) noexcept {
  return copyTo(at, skipStrictUtf8ByChunks(at.text, end));
}

// --- UTF-8 to single bytes --------------------------------------------------------------------

namespace {

// The byte of a code from 0x80 to 0xFF.
unsigned char narrowPair(unsigned int lead, unsigned int continuation) noexcept {
  return static_cast<unsigned char>(lead << 6 | (continuation & 0x3F));
}

// Narrows `word` if it holds ASCII and one such pair, whose lead byte is byte `at` of it.
bool narrowOnePair(std::uint64_t& word, std::uint64_t marks, int at) noexcept {
  if (at > kWord - 2 || marks != std::uint64_t{0x8080} << 8 * at) return false;
  auto const pair = static_cast<unsigned int>(word >> 8 * at & 0xFFFF);
  if ((pair & 0xC0FE) != 0x80C2) return false;
  std::uint64_t const before = (std::uint64_t{1} << 8 * at) - 1;
  std::uint64_t const code = narrowPair(pair & 0xFF, pair >> 8);
  word = (word & before) | code << 8 * at | (word >> 8 & ~before & ~(before << 8 | 0xFF));
  return true;
}

// Goes to about `until`, or to the first character that is no pair of a code of one byte. Overlong
// pairs are left to the rows: UTF-8 as a row takes them, UTF-8 as a locale does not.
template <bool isWriting>
Position narrow(Position at, unsigned char const* until, unsigned char const* end) noexcept {
  unsigned char const* p = at.text;
  auto* const out = reinterpret_cast<char*>(at.out);
  std::ptrdiff_t made = 0;
  while (p < until) {
    if (end - p >= kWord) {
      std::uint64_t word = loadWord(p);
      std::uint64_t const marks = word & kHighBits;
      int const ascii = marks == 0 ? static_cast<int>(kWord) : firstMark(marks);
      bool const hasOnePair = marks != 0 && narrowOnePair(word, marks, ascii);
      std::ptrdiff_t const bytes = hasOnePair ? kWord - 1 : ascii;
      if constexpr (isWriting)
        copyBytes(out + made, reinterpret_cast<char*>(&word), static_cast<std::size_t>(bytes));
      made += bytes;
      p += hasOnePair ? kWord : ascii;
      if (marks == 0 || hasOnePair) continue;
    } else if (*p < 0x80) {
      if constexpr (isWriting) out[made] = static_cast<char>(*p);
      ++p;
      ++made;
      continue;
    }
    if (end - p < 2 || (p[0] & 0xFE) != 0xC2 || !isContinuation(p[1])) break;
    if constexpr (isWriting) out[made] = static_cast<char>(narrowPair(p[0], p[1]));
    p += 2;
    ++made;
  }
  if constexpr (isWriting) at.out += made;
  return {p, at.out, at.total + static_cast<std::size_t>(made)};
}

// Measures chunks of ASCII and such pairs. The last piece of the text is left to the plain form.
ATR_ALWAYS_INLINE Position measureNarrowChunks(Position at, unsigned char const* end) {
  unsigned char const* p = at.text;
  while (end - p >= kChunk) {
    unsigned char bad = 0;
    unsigned char pairs = 0;
    for (int i = 0; i < kChunk; ++i) {
      bool const isSecond = isContinuation(p[i]);
      bool const isOther = (p[i] >= 0xC0) & ((p[i] & 0xFE) != 0xC2);
      bool const isBad = ((p[i - 1] >= 0xC0) != isSecond) | isOther;
      bad = std::max(bad, static_cast<unsigned char>(isBad ? 0xFF : 0));
      pairs = static_cast<unsigned char>(pairs + (isSecond ? 1 : 0));
    }
    if (bad != 0) break;
    bool const isCut = p[kChunk - 1] >= 0xC0;
    p += isCut ? kChunk - 1 : kChunk;
    at.total += static_cast<std::size_t>(kChunk - pairs - (isCut ? 1 : 0));
  }
  return {p, at.out, at.total};
}

}  // namespace

Position narrowUtf8(Position at, unsigned char const* end) noexcept {
  if (at.out != nullptr) return narrow<true>(at, end, end);
  return walkByChunks<narrow<false>, WideVectors<measureNarrowChunks>::call>(at, end);
}

// --- single bytes to UTF-8 --------------------------------------------------------------------

Position widenToUtf8(Position at, unsigned char const* end) noexcept {
  for (;;) {
    at = copyTo(at, skipAscii(at.text, end));
    if (at.text == end) return at;
    unsigned char const byte = *at.text++;
    if (at.out != nullptr) {
      *at.out++ = static_cast<unsigned char>(0xC0 | byte >> 6);
      *at.out++ = static_cast<unsigned char>(0x80 | (byte & 0x3F));
    }
    at.total += 2;
  }
}

}  // namespace atr
