// skipStrictUtf8 states the rule, with words of eight bytes for ASCII and for characters of three
// bytes. skipChunks beside it judges 64 bytes without a branch.
#include "atr/encoding/strict_utf8.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "atr/encoding/chunks.h"
#include "atr/encoding/utf8_walk.h"
#include "atr/frame/processor.h"
#include "atr/frame/words.h"

namespace atr {

unsigned char const* skipAscii(unsigned char const* p, unsigned char const* end) noexcept {
  while (end - p >= kWord) {
    std::uint64_t const high = loadWord(p) & kHighBits;
    if (high != 0) return p + firstMark(high);
    p += kWord;
  }
  while (p != end && *p < 0x80) ++p;
  return p;
}

namespace {

bool isPair(unsigned char const* p) noexcept {
  return (p[0] & 0xE0) == 0xC0 && isContinuation(p[1]);
}

bool isTriple(unsigned char const* p) noexcept {
  return (p[0] & 0xF0) == 0xE0 && isContinuation(p[1]) && isContinuation(p[2]);
}

// Skips characters of three bytes, two at a time as long as there is a word to load.
// Stops at E0 and ED, which may begin overlong forms or surrogates. A zero low nibble marks E0 (and
// ED after xor D); subtracting 1 then borrows into bit 4.
unsigned char const* skipTriples(unsigned char const* p, unsigned char const* end) noexcept {
  constexpr std::uint64_t kMask = 0xC0C0F0C0C0F0;
  constexpr std::uint64_t kTwoTriples = 0x8080E08080E0;
  constexpr std::uint64_t kLeads = 0x000001000001;  // the lowest bit of each lead byte
  while (end - p >= kWord) {
    std::uint64_t const word = loadWord(p);
    std::uint64_t const low = word & 0xF * kLeads;
    std::uint64_t const borrows = (low - kLeads) | ((low ^ 0xD * kLeads) - kLeads);
    if ((((word & kMask) ^ kTwoTriples) | (borrows & 0x10 * kLeads)) != 0) break;
    p += 6;
  }
  return p;
}

// Bytes of the strict character at `p`, or 0 if there is none.
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

}  // namespace

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

// True if a chunk and the bytes in front of it are ASCII, so that no character goes on in it.
bool isAsciiChunk(unsigned char const* p) noexcept {
  std::uint64_t any = loadWord(p - kLookBack);
  for (std::ptrdiff_t i = 0; i < kChunk; i += kWord) any |= loadWord(p + i);
  return (any & kHighBits) == 0;
}

// True if `byte` cannot follow `previous2 previous1` in strict UTF-8 of at most three bytes a
// character. Branch-free, so that it vectorises.
inline bool isOutOfPlace(unsigned char byte, unsigned char previous1,
                         unsigned char previous2) noexcept {
  bool const isDue = (previous1 >= 0xC0) | (previous2 >= 0xE0);
  bool const isNoLead = (byte >= 0xF0) | ((byte & 0xFE) == 0xC0);
  // The lead byte that this second byte would make overlong (A0 is missing) or a surrogate.
  auto const forbidden = static_cast<unsigned char>((byte & 0x20) != 0 ? 0xED : 0xE0);
  return (isDue != isContinuation(byte)) | isNoLead | (previous1 == forbidden);
}

// Bytes in front of `p` that begin a character of up to three bytes which goes on at `p`.
inline std::ptrdiff_t cutBefore(unsigned char const* p) noexcept {
  return p[-1] >= 0xC0 ? 1 : p[-2] >= 0xE0 ? 2 : 0;
}

// Skips chunks of strict characters of up to three bytes. A character may go on in the next chunk.
// The last chunk ends with the text, and so overlaps the one before it.
ATR_ALWAYS_INLINE unsigned char const* skipChunks(unsigned char const* p,
                                                  unsigned char const* end) {
  if (end - p < kChunk) return p;
  while (p != end) {
    unsigned char const* const chunk = end - p < kChunk ? end - kChunk : p;
    if (!isAsciiChunk(chunk)) {
      unsigned char const* const bytes = hideOrigin(chunk);
      unsigned char bad = 0;
      for (int i = 0; i < kChunk; ++i) {
        bool const isBad = isOutOfPlace(bytes[i], bytes[i - 1], bytes[i - 2]);
        bad = std::max(bad, static_cast<unsigned char>(isBad ? 0xFF : 0));
      }
      if (bad != 0) break;
    }
    p = chunk + kChunk;
  }
  return p - cutBefore(p);
}

}  // namespace

unsigned char const* skipStrictUtf8ByChunks(unsigned char const* p,
                                            unsigned char const* end) noexcept {
  return walkByChunks<skipStrictUtf8, WideVectors<skipChunks>::call>(p, end);
}

}  // namespace atr
