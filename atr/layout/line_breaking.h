// The parts of the line breaker: the step over a word, and the search for the end of a line in a
// plain and in a fast form.
#ifndef ATR_LAYOUT_LINE_BREAKING_H
#define ATR_LAYOUT_LINE_BREAKING_H

#include <cstddef>

namespace atr {

/// True for the six ASCII characters that are white space.
bool isWhiteSpace(char byte) noexcept;

/// Where the line that begins at `line` ends: behind the first word with which it has `limit` bytes
/// or more, or at `end`. Test markers do not count. Steps by characters of the process locale.
/// @pre `line` is before `end`.
char const* findLineEnd(char const* line, char const* end, std::size_t limit) noexcept;

/// The same, several times as fast: it jumps to the limit without looking at the bytes before it.
/// @pre the test mode is off, and in the codeset no byte within a longer character is white space.
char const* findLineEndByBytes(char const* line, char const* end, std::size_t limit) noexcept;

}  // namespace atr

/// The length of the test marker if the test mode is on and the marker stands at `p`, otherwise 0.
/// The first call of the process fixes mode and marker.
int atr_skipTestMarker(char const* p, char const* end) noexcept;

/// Bytes from `p` over white space and the next word, up to the white space behind it or to `end`;
/// at least 1 unless `p` is `end`. Steps by characters of the process locale. The bytes of test
/// markers on the way are included, and added to `markerBytes`.
int atr_wordStep(char const* p, char const* end, int& markerBytes) noexcept;

#endif  // ATR_LAYOUT_LINE_BREAKING_H
