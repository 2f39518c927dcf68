// Runs of characters that the transcoding loop may pass by without its rows, for encodings known by
// name. Each gives what the loop gives, and stops at the first character that it leaves to it.
#ifndef ATR_ENCODING_FAST_RUNS_H
#define ATR_ENCODING_FAST_RUNS_H

#include <cstddef>

namespace atr {

/// Where the loop stands.
struct TranscodingState {
  unsigned char const* text;  // next byte to read
  unsigned char* out;         // next byte to write; null while measuring
  std::size_t total;          // bytes of output
  int pause = 0;              // characters that a run leaves to the loop, after one it had to
};

/// Moves `state` over as many characters before `end` as it is sure of.
using FastRun = void (*)(TranscodingState& state, unsigned char const* end);

/// The run between two encodings in the locale in force, or null if there is none.
FastRun fastRunBetween(int target, int source) noexcept;

/// UTF-8 to UTF-8: strict forms, as skipStrictUtf8 has them.
void copyUtf8(TranscodingState& state, unsigned char const* end);

/// UTF-8 to codes of one byte, by shortest forms.
void narrowUtf8(TranscodingState& state, unsigned char const* end);

/// Codes of one byte to UTF-8.
void widenToUtf8(TranscodingState& state, unsigned char const* end);

/// UTF-8 to a locale of platform::Codeset::separate, many characters by one call of the runtime.
void encodeByRuns(TranscodingState& state, unsigned char const* end);

/// From such a locale to UTF-8, likewise.
void decodeByRuns(TranscodingState& state, unsigned char const* end);

/// A character in [p, end) at `until` or behind it, or the first before it that is not strict
/// UTF-8, of which every UTF-8 takes the same: shortest forms, no surrogates, up to U+10FFFF.
unsigned char const* skipStrictUtf8(unsigned char const* p, unsigned char const* until,
                                    unsigned char const* end) noexcept;

/// As skipStrictUtf8 up to `end`; ahead from about a hundred bytes on; see the benchmark
/// "validate UTF-8 4 kB".
unsigned char const* skipStrictUtf8ByBlocks(unsigned char const* p,
                                            unsigned char const* end) noexcept;

}  // namespace atr

#endif  // ATR_ENCODING_FAST_RUNS_H
