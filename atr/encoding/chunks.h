// A walk over a text by chunks of 64 bytes, whose loops the compiler makes vectors of, with the
// plain walk wherever a chunk does not fit.
#ifndef ATR_ENCODING_CHUNKS_H
#define ATR_ENCODING_CHUNKS_H

#include <algorithm>
#include <cstddef>

namespace atr {

constexpr std::ptrdiff_t kChunk = 64;  // bytes; two wide vectors, enough to pay for the chunk's end
constexpr std::ptrdiff_t kLookBack = 2;  // bytes in front of a chunk that are read with it

/// The text that a walk stands at. A walk that also writes has an overload for its own position.
inline unsigned char const* textAt(unsigned char const* position) noexcept { return position; }

/// Walks from `at` towards `end` and answers where the walk stopped.
///
/// kPlain(at, until, end) goes character by character until it is at `until` or behind it, and
/// stops earlier only at a character that the walk cannot take. kChunks(at, end) goes by chunks,
/// reads kLookBack bytes in front of `at`, and may stop anywhere. So the plain walk takes the first
/// characters, which have nothing in front of them, those around the place where the chunks
/// stopped, the last ones, and all of a text that has no room for a chunk.
template <auto kPlain, auto kChunks, class Position>
Position walkByChunks(Position at, unsigned char const* end) {
  std::ptrdiff_t const left = end - textAt(at);
  std::ptrdiff_t plainBytes = left < kLookBack + kChunk ? left : kLookBack;
  for (;;) {
    unsigned char const* const until = textAt(at) + std::min(plainBytes, end - textAt(at));
    at = kPlain(at, until, end);
    if (textAt(at) < until || textAt(at) == end) return at;
    at = kChunks(at, end);
    plainBytes = kChunk;
  }
}

}  // namespace atr

#endif  // ATR_ENCODING_CHUNKS_H
