// The line breaker's inside: the step over a word, and the end of a line, plain and fast.
#ifndef ATR_LAYOUT_LINE_BREAKING_H
#define ATR_LAYOUT_LINE_BREAKING_H

#include <cstddef>

namespace atr {

/// An ASCII character that is white space in the process locale.
bool isWhiteSpace(char byte) noexcept;

/// The end of the line that begins at `line`, which is before `end`: the first word end at which it
/// has `limit` bytes, markers not counted, or `end`. By characters of the process locale.
char const* findLineEnd(char const* line, char const* end, std::size_t limit) noexcept;

/// The same with the test mode off, in codesets in which no byte of a longer character is white
/// space: the bytes before the limit need no look. See the benchmark "fold 10 kB at 72".
char const* findLineEndByBytes(char const* line, char const* end, std::size_t limit) noexcept;

}  // namespace atr

/// Bytes to skip if the test mode is on and the marker stands at `p`, else 0. The first call of the
/// process fixes mode and marker.
int atr_skipTestMarker(char const* p, char const* end) noexcept;

/// Bytes from `p` to the white space behind the next word, or to `end`; by characters of the
/// process locale. Adds the marker bytes on the way to `markerBytes`. At least 1 before `end`.
int atr_wordStep(char const* p, char const* end, int& markerBytes) noexcept;

#endif  // ATR_LAYOUT_LINE_BREAKING_H
