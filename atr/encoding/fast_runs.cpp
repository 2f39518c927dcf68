// Eight bytes at a time where they are ASCII, four at a time for a character of two or three bytes.
#include "atr/encoding/fast_runs.h"

#include <cstdint>
#include <cstring>

#include "atr/encoding/transcoding.h"
#include "atr/encoding/utf8_walk.h"
#include "atr/frame/platform.h"
#include "atr/frame/words.h"

namespace atr {

namespace {

unsigned char const* skipAscii(unsigned char const* p, unsigned char const* end) noexcept {
  while (end - p >= kWord) {
    std::uint64_t const high = loadWord(p) & kHighBits;
    if (high == 0) {
      p += kWord;
    } else if constexpr (kIsLittleEndian) {
      return p + firstMark(high);
    } else {
      break;
    }
  }
  while (p != end && *p < 0x80) ++p;
  return p;
}

bool isPair(unsigned char const* p) noexcept {
  return (p[0] & 0xE0) == 0xC0 && isContinuation(p[1]);
}

bool isTriple(unsigned char const* p) noexcept {
  return (p[0] & 0xF0) == 0xE0 && isContinuation(p[1]) && isContinuation(p[2]);
}

// Over characters of three bytes, two at a time while there is a word to look at. With `isStrict`
// the first bytes E0 and ED, which have forms of no good, end it.
template <bool isStrict>
unsigned char const* skipTriples(unsigned char const* p, unsigned char const* end) noexcept {
  constexpr unsigned int kGoodFirst = isStrict ? 0xDFFE : 0xFFFF;  // by the first byte's low bits
  constexpr std::uint64_t kMask = 0xC0C0F0C0C0F0;
  constexpr std::uint64_t kTwoTriples = 0x8080E08080E0;
  while (kIsLittleEndian && end - p >= kWord) {
    std::uint64_t const word = loadWord(p);
    unsigned int const isGood = kGoodFirst >> (word & 0xF) & kGoodFirst >> (word >> 24 & 0xF) & 1U;
    if ((word & kMask) != kTwoTriples || isGood == 0) break;
    p += 6;
  }
  while (end - p >= 3 && isTriple(p) && (kGoodFirst >> (p[0] & 0xFU) & 1U) != 0) p += 3;
  return p;
}

// Bytes of the character at `p` if it is a shortest form of a code that every UTF-8 has, else 0.
int strictLength(unsigned char const* p, unsigned char const* end) noexcept {
  if (*p < 0x80) return 1;
  if (end - p >= 2 && isPair(p)) return p[0] >= 0xC2 ? 2 : 0;
  if (end - p >= 3 && isTriple(p)) {
    bool const isOverlong = p[0] == 0xE0 && p[1] < 0xA0;
    bool const isSurrogate = p[0] == 0xED && p[1] >= 0xA0;
    return isOverlong || isSurrogate ? 0 : 3;
  }
  if (end - p < 4 || p[0] < 0xF0 || p[0] > 0xF4) return 0;
  if (!isContinuation(p[1]) || !isContinuation(p[2]) || !isContinuation(p[3])) return 0;
  bool const isInRange = (p[0] > 0xF0 || p[1] >= 0x90) && (p[0] < 0xF4 || p[1] < 0x90);
  return isInRange ? 4 : 0;
}

// Passes on the bytes up to `to` as they are.
void copyTo(TranscodingState& state, unsigned char const* to) noexcept {
  auto const bytes = static_cast<std::size_t>(to - state.text);
  if (state.out != nullptr) {
    std::memcpy(state.out, state.text, bytes);
    state.out += bytes;
  }
  state.text = to;
  state.total += bytes;
}

bool isSingleByte(int encoding, platform::Codeset codeset) noexcept {
  return encoding == EncodingSingleByte ||
         (encoding == EncodingLocale && codeset == platform::Codeset::latin1);
}

}  // namespace

FastRun fastRunBetween(int target, int source) noexcept {
  bool const asksLocale = target == EncodingLocale || source == EncodingLocale;
  auto const codeset = asksLocale ? platform::currentCodeset() : platform::Codeset::other;
  auto const isUtf8 = [codeset](int encoding) noexcept {
    return encoding == EncodingUtf8 ||
           (encoding == EncodingLocale && codeset == platform::Codeset::utf8);
  };
  if (isUtf8(source) && isUtf8(target)) return copyUtf8;
  if (isUtf8(source) && isSingleByte(target, codeset)) return narrowUtf8;
  if (isSingleByte(source, codeset) && isUtf8(target)) return widenToUtf8;
  return nullptr;
}

void copyUtf8(TranscodingState& state, unsigned char const* end) {
  unsigned char const* p = state.text;
  while (p != end) {
    p = skipAscii(p, end);
    p = skipTriples<true>(p, end);
    if (p == end) break;
    int const bytes = strictLength(p, end);
    if (bytes == 0) break;
    p += bytes;
  }
  copyTo(state, p);
}

namespace {

// A whole word is stored only where all of it is output. Overlong pairs are for the loop: UTF-8 as
// a row takes them, as a locale it does not.
template <bool isWriting>
void narrow(TranscodingState& state, unsigned char const* end) noexcept {
  unsigned char const* p = state.text;
  unsigned char* out = state.out;
  unsigned char const* const start = p;
  std::size_t pairs = 0;
  for (;;) {
    for (; end - p >= kWord && (loadWord(p) & kHighBits) == 0; p += kWord) {
      if constexpr (isWriting) std::memcpy(out, p, sizeof(std::uint64_t)), out += kWord;
    }
    for (; p != end && *p < 0x80; ++p) {
      if constexpr (isWriting) *out++ = *p;
    }
    if (end - p < 2 || !isPair(p) || p[0] < 0xC2 || p[0] > 0xC3) break;
    if constexpr (isWriting) *out++ = static_cast<unsigned char>(p[0] << 6 | (p[1] & 0x3F));
    p += 2;
    ++pairs;
  }
  state = {p, out, state.total + static_cast<std::size_t>(p - start) - pairs};
}

}  // namespace

void narrowUtf8(TranscodingState& state, unsigned char const* end) {
  state.out != nullptr ? narrow<true>(state, end) : narrow<false>(state, end);
}

void widenToUtf8(TranscodingState& state, unsigned char const* end) {
  for (;;) {
    copyTo(state, skipAscii(state.text, end));
    if (state.text == end) return;
    unsigned char const byte = *state.text++;
    if (state.out != nullptr) {
      *state.out++ = static_cast<unsigned char>(0xC0 | byte >> 6);
      *state.out++ = static_cast<unsigned char>(0x80 | (byte & 0x3F));
    }
    state.total += 2;
  }
}

unsigned char const* skipCommonUtf8(unsigned char const* p, unsigned char const* end) noexcept {
  for (;;) {
    unsigned char const* const before = p;
    p = skipAscii(p, end);
    while (end - p >= 2 && isPair(p)) p += 2;
    p = skipTriples<false>(p, end);
    if (p == before) return p;
  }
}

}  // namespace atr
