// Characters one by one and, beside them, whole blocks in loops that the compiler makes vectors of,
// and runs by the runtime.
#include "atr/encoding/fast_runs.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "atr/encoding/transcoding.h"
#include "atr/encoding/utf8.h"
#include "atr/encoding/utf8_walk.h"
#include "atr/frame/platform.h"
#include "atr/frame/wide_vectors.h"
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

// Over characters of three bytes, two at a time while there is a word to look at, but for the first
// bytes E0 and ED, which have forms of no good: one less than the low half of E0 borrows, and so
// does one less than that of ED with D taken out of it.
unsigned char const* skipTriples(unsigned char const* p, unsigned char const* end) noexcept {
  constexpr std::uint64_t kMask = 0xC0C0F0C0C0F0;
  constexpr std::uint64_t kTwoTriples = 0x8080E08080E0;
  constexpr std::uint64_t kFirsts = 0x000001000001;  // the lowest bit of each first byte
  while (kIsLittleEndian && end - p >= kWord) {
    std::uint64_t const word = loadWord(p);
    std::uint64_t const low = word & 0xF * kFirsts;
    std::uint64_t const less = (low - kFirsts) | ((low ^ 0xD * kFirsts) - kFirsts);
    if ((((word & kMask) ^ kTwoTriples) | (less & 0x10 * kFirsts)) != 0) break;
    p += 6;
  }
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
  if (codeset != platform::Codeset::separate) return nullptr;
  if (source == EncodingUtf8 && target == EncodingLocale) return encodeByRuns;
  if (source == EncodingLocale && target == EncodingUtf8) return decodeByRuns;
  return nullptr;
}

unsigned char const* skipStrictUtf8(unsigned char const* p, unsigned char const* until,
                                    unsigned char const* end) noexcept {
  while (p < until) {
    p = skipTriples(skipAscii(p, until), end);
    while (end - p >= 2 && isPair(p) && p[0] >= 0xC2) p += 2;
    if (p >= until) break;
    int const bytes = strictLength(p, end);
    if (bytes == 0) break;
    p += bytes;
  }
  return p;
}

namespace {

constexpr std::ptrdiff_t kBlock = 64;    // bytes; two vectors, and enough to pay for their end
constexpr std::ptrdiff_t kLookBack = 2;  // bytes before a block that are read with it

// Whether a block is ASCII, the bytes before it too, so that no character goes on in it.
bool isAsciiBlock(unsigned char const* p) noexcept {
  std::uint64_t any = loadWord(p - kLookBack);
  for (std::ptrdiff_t i = 0; i < kBlock; i += kWord) any |= loadWord(p + i);
  return (any & kHighBits) == 0;
}

// Whether a byte of text that is strict up to there has no place behind the two before it, or is of
// a character of four bytes. Without a branch, for the vectors.
inline bool isOutOfPlace(unsigned char byte, unsigned char before, unsigned char second) noexcept {
  bool const isDue = (before >= 0xC0) | (second >= 0xE0);
  bool const isOther = (byte >= 0xF0) | ((byte & 0xFE) == 0xC0);
  // What a shortest form and no surrogate may not begin with, if this is its second byte.
  auto const forbidden = static_cast<unsigned char>((byte & 0x20) != 0 ? 0xED : 0xE0);
  return (isDue != isContinuation(byte)) | isOther | (before == forbidden);
}

// Bytes at the end of what stands before `p` that begin a character of up to three bytes which goes
// on behind it.
inline std::ptrdiff_t cutBefore(unsigned char const* p) noexcept {
  return p[-1] >= 0xC0 ? 1 : p[-2] >= 0xE0 ? 2 : 0;
}

// Over blocks of strict characters of up to three bytes. A character may go on in the next block;
// the last block ends with the text. @pre `p` has kLookBack bytes of the text before it.
[[gnu::always_inline]] inline unsigned char const* skipBlocks(unsigned char const* p,
                                                              unsigned char const* end) {
  if (end - p < kBlock) return p;
  while (p != end) {
    unsigned char const* const block = end - p < kBlock ? end - kBlock : p;
    if (!isAsciiBlock(block)) {
      unsigned char const* const bytes = loadAnew(block);
      unsigned char bad = 0;
      for (int i = 0; i < kBlock; ++i) {
        bool const isBad = isOutOfPlace(bytes[i], bytes[i - 1], bytes[i - 2]);
        bad = std::max(bad, static_cast<unsigned char>(isBad ? 0xFF : 0));
      }
      if (bad != 0) break;
    }
    p = block + kBlock;
  }
  return p - cutBefore(p);
}

// Moves `p` by blocks. The first characters, which nothing stands before, the characters about
// where blocks stop, the last ones, and all of a text without room for a block go one by one.
template <class Walk, class Blocks>
void goByBlocks(unsigned char const*& p, unsigned char const* end, Walk walkUntil, Blocks goOn) {
  std::ptrdiff_t bytes = end - p < kLookBack + kBlock ? end - p : kLookBack;
  for (;;) {
    unsigned char const* const until = p + std::min(bytes, end - p);
    walkUntil(until);
    if (p < until || p == end) return;
    goOn();
    bytes = kBlock;
  }
}

}  // namespace

unsigned char const* skipStrictUtf8ByBlocks(unsigned char const* p,
                                            unsigned char const* end) noexcept {
  goByBlocks(
      p, end, [&](unsigned char const* until) { p = skipStrictUtf8(p, until, end); },
      [&] { p = WideVectors<skipBlocks>::call(p, end); });
  return p;
}

namespace {

// Passes on the bytes up to `to` as they are. The output may be the text itself.
void copyTo(TranscodingState& state, unsigned char const* to) noexcept {
  auto const bytes = static_cast<std::size_t>(to - state.text);
  if (state.out != nullptr) {
    std::memmove(state.out, state.text, bytes);
    state.out += bytes;
  }
  state.text = to;
  state.total += bytes;
}

}  // namespace

void copyUtf8(TranscodingState& state, unsigned char const* end) {
  copyTo(state, skipStrictUtf8ByBlocks(state.text, end));
}

namespace {

// The byte of a code from 0x80 to 0xFF.
unsigned char narrowPair(unsigned int first, unsigned int second) noexcept {
  return static_cast<unsigned char>(first << 6 | (second & 0x3F));
}

// Narrows `word` if one such pair, at `at`, is all that it has beside ASCII.
bool narrowOnePair(std::uint64_t& word, std::uint64_t marks, int at) noexcept {
  if (at > kWord - 2 || marks != std::uint64_t{0x8080} << 8 * at) return false;
  auto const pair = static_cast<unsigned int>(word >> 8 * at & 0xFFFF);
  if ((pair & 0xC0FE) != 0x80C2) return false;
  std::uint64_t const before = (std::uint64_t{1} << 8 * at) - 1;
  std::uint64_t const code = narrowPair(pair & 0xFF, pair >> 8);
  word = (word & before) | code << 8 * at | (word >> 8 & ~before & ~(before << 8 | 0xFF));
  return true;
}

// Up to about `until`, or to the first character that is no pair of a code of one byte. Overlong
// pairs are for the loop: UTF-8 as a row takes them, as a locale it does not.
template <bool isWriting>
void narrow(TranscodingState& state, unsigned char const* until,
            unsigned char const* end) noexcept {
  unsigned char const* p = state.text;
  auto* const out = reinterpret_cast<char*>(state.out);
  std::ptrdiff_t made = 0;
  while (p < until) {
    if (kIsLittleEndian && end - p >= kWord) {
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
  state.text = p;
  if constexpr (isWriting) state.out += made;
  state.total += static_cast<std::size_t>(made);
}

// Measures blocks of ASCII and such pairs, as skipBlocks goes, but leaves the last one.
[[gnu::always_inline]] inline void measureNarrowBlocks(TranscodingState& state,
                                                       unsigned char const* end) {
  unsigned char const* p = state.text;
  while (end - p >= kBlock) {
    unsigned char bad = 0;
    unsigned char pairs = 0;
    for (int i = 0; i < kBlock; ++i) {
      bool const isSecond = isContinuation(p[i]);
      bool const isOther = (p[i] >= 0xC0) & ((p[i] & 0xFE) != 0xC2);
      bool const isBad = ((p[i - 1] >= 0xC0) != isSecond) | isOther;
      bad = std::max(bad, static_cast<unsigned char>(isBad ? 0xFF : 0));
      pairs = static_cast<unsigned char>(pairs + (isSecond ? 1 : 0));
    }
    if (bad != 0) break;
    bool const isCut = p[kBlock - 1] >= 0xC0;
    p += isCut ? kBlock - 1 : kBlock;
    state.total += static_cast<std::size_t>(kBlock - pairs - (isCut ? 1 : 0));
  }
  state.text = p;
}

}  // namespace

void narrowUtf8(TranscodingState& state, unsigned char const* end) {
  if (state.out != nullptr) return narrow<true>(state, end, end);
  goByBlocks(
      state.text, end, [&](unsigned char const* until) { narrow<false>(state, until, end); },
      [&] { WideVectors<measureNarrowBlocks>::call(state, end); });
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

// In pieces that encodeRun takes, up to a code that the loop has to look at. Where there is one
// there are more: a pause keeps the runs that come to nothing few.
void encodeByRuns(TranscodingState& state, unsigned char const* end) {
  constexpr int kPause = 16;
  if (state.pause > 0) {
    --state.pause;
    return;
  }
  for (int given = platform::kRun, taken = given; given == platform::kRun && taken == given;) {
    unsigned int codes[platform::kRun];
    unsigned char const* starts[platform::kRun + 1] = {state.text};
    for (given = 0; given < platform::kRun && starts[given] < end; ++given) {
      int bytes = 0;
      codes[given] = atr_utf8_to_ucs4(starts[given], &bytes);
      if (codes[given] == 0 || codes[given] > platform::kMaxRunCode) break;
      starts[given + 1] = starts[given] + bytes;
    }
    taken = given;
    char run[platform::kRunRoom];
    std::size_t const bytes = platform::encodeRun(run, codes, taken);
    if (state.out != nullptr) {
      std::memcpy(state.out, run, bytes);
      state.out += bytes;
    }
    state.text = starts[taken];
    state.total += bytes;
  }
  state.pause = kPause;
}

void decodeByRuns(TranscodingState& state, unsigned char const* end) {
  for (int count = platform::kRun; count == platform::kRun;) {
    unsigned int codes[platform::kRun];
    auto const* text = reinterpret_cast<char const*>(state.text);
    count = platform::decodeRun(codes, text, reinterpret_cast<char const*>(end));
    state.text = reinterpret_cast<unsigned char const*>(text);
    for (int i = 0; i < count; ++i) {
      bool const isWriting = state.out != nullptr;
      int const bytes =
          isWriting ? atr_utf8_from_ucs4(state.out, codes[i]) : atr_utf8_len(codes[i]);
      if (isWriting) state.out += bytes;
      state.total += static_cast<std::size_t>(bytes);
    }
  }
}

}  // namespace atr
