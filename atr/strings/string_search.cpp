// Search for texts within a string, in both directions. A text ends at its first NUL, and a match
// may lie within a multi-byte character.
#include <algorithm>
#include <bit>
#include <cassert>
#include <climits>
#include <cstdint>
#include <cstring>
#include <utility>

#include "atr/frame/processor.h"
#include "atr/frame/words.h"
#include "atr/strings/string_base.h"

using namespace atr;

int atr_StringBase::textEnd() const noexcept {
  auto const* const nul = static_cast<char const*>(
      std::memchr(textOf(*this), '\0', static_cast<std::size_t>(lengthOf(*this)) + 1));
  return nul != nullptr ? static_cast<int>(nul - textOf(*this)) : lengthOf(*this);
}

namespace {

constexpr std::size_t kChunk = 512;  // bytes; enough to pay for the call and the test of its end
constexpr std::size_t kCacheLine = 64;

// True if the chunk holds a NUL or a candidate: `first`, and `final` length - 1 bytes later.
// `least` is 0 then.
inline bool mayHold(char const* chunk, char first, char final, std::size_t length) noexcept {
  unsigned char least = 0xFF;
  for (std::size_t i = 0; i < kChunk; ++i) {
    auto const differences =
        static_cast<unsigned char>((chunk[i] ^ first) | (chunk[i + length - 1] ^ final));
    least = std::min(least, std::min(differences, static_cast<unsigned char>(chunk[i])));
  }
  return least == 0;
}

// Bytes at `p` that strstr need not look at, since `text` begins at none of them. Many times as
// fast as strstr where its first byte is frequent: see the benchmark "Find in 10 kB". The chunks
// behind the first one begin with a cache line, since a load across two lines costs as much as two.
ATR_ALWAYS_INLINE std::size_t skipOthers(char const* p, std::size_t length, char const* text,
                                         std::size_t textLength) {
  std::size_t at = 0;
  if (textLength == 0) return at;
  std::size_t step = kChunk - reinterpret_cast<std::uintptr_t>(p) % kCacheLine;
  while (length - at >= kChunk + textLength - 1 &&
         !mayHold(p + at, text[0], text[textLength - 1], textLength)) {
    at += std::exchange(step, kChunk);
  }
  return at;
}

// Goes back from `p` over the chunks in which `text` does not begin. `text` fits behind `p`.
ATR_ALWAYS_INLINE char const* skipBackOthers(char const* p, char const* begin, char const* text,
                                             std::size_t textLength) {
  while (p - begin >= static_cast<std::ptrdiff_t>(kChunk) &&
         !mayHold(p - kChunk + 1, text[0], text[textLength - 1], textLength)) {
    p -= kChunk;
  }
  return p;
}

}  // namespace

int atr_StringBase::Find(char const* text, int pos) const {
  assert(text != nullptr);
  int const length = lengthOf(*this);
  if (pos > length || length == 0) return length;
  char const* const start = body + std::max(pos, 0);
  auto const rest = static_cast<std::size_t>(body + length - start);
  std::size_t const skipped = WideVectors<skipOthers>::call(start, rest, text, std::strlen(text));
  char const* const found = std::strstr(start + skipped, text);
  return found != nullptr ? static_cast<int>(found - body) : length;
}

namespace {

// Goes back from `p`, a word at a time, to the last `wanted` in [begin, p]. Without one it stops
// less than a word from `begin`.
char const* skipBackTo(char wanted, char const* p, char const* begin) noexcept {
  std::uint64_t const pattern = wordOf(wanted);
  for (; p - begin >= kWord; p -= kWord) {
    std::uint64_t const found = zeroBytes(loadWord(p - kWord + 1) ^ pattern);
    if (found == 0) continue;
    return p - std::countl_zero(found) / 8;
  }
  return p;
}

}  // namespace

int atr_StringBase::rfind(char const* text, int textLength, int lastStart) const {
  int const length = lengthOf(*this);
  if (textLength == 0 || lastStart <= 0 || length == 0) return length;
  assert(text != nullptr);
  std::size_t const wanted = std::strlen(text);
  if (wanted == 0) return std::min(lastStart, length - 1);
  int const end = textEnd();
  if (wanted > static_cast<std::size_t>(end)) return length;
  std::ptrdiff_t at = std::min(lastStart, end - static_cast<int>(wanted));
  while (at >= 0) {
    at = WideVectors<skipBackOthers>::call(body + at, body, text, wanted) - body;
    std::ptrdiff_t const stop = std::max<std::ptrdiff_t>(at - (std::ptrdiff_t{kChunk} - 1), 0);
    for (; at >= stop; --at) {
      char const* const p = skipBackTo(text[0], body + at, body + stop);
      at = p - body;
      if (p[0] == text[0] && std::memcmp(p, text, wanted) == 0) return static_cast<int>(at);
    }
  }
  return length;
}

int atr_StringBase::Substr(int pos, int count) const {
  std::int64_t const rest = std::int64_t{lengthOf(*this)} - pos;
  return static_cast<int>(std::clamp<std::int64_t>(rest, INT_MIN, count));
}
