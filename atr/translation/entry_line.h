// The pieces of a dictionary's entry line, where they stand in the line.
//
//     line = { byte } "'" key "'] = r'" value closing
#ifndef ATR_TRANSLATION_ENTRY_LINE_H
#define ATR_TRANSLATION_ENTRY_LINE_H

#include <cstddef>
#include <cstring>

namespace atr {

constexpr char kMarker[] = "'] = r'";
constexpr std::ptrdiff_t kMarkerBytes = sizeof kMarker - 1;
constexpr int kClosingBytes = 2;  // a quote and a newline, whatever they really are

struct EntryLine {
  char* key;
  int keyBytes;  // negative if the line's first quote is the marker's own
  char* value;   // up to the NUL of the line, closing included
  int valueBytes;
};

inline char* findQuote(char* p, char const* end) noexcept {
  return static_cast<char*>(std::memchr(p, '\'', static_cast<std::size_t>(end - p)));
}

/// Finds the pieces of the first marker in a line of `bytes` bytes; false, with `entry` untouched,
/// if the line has no marker and so is no entry.
inline bool findEntry(char* line, std::ptrdiff_t bytes, EntryLine& entry) noexcept {
  char* const end = line + bytes;
  char* const firstQuote = findQuote(line, end);
  for (char* quote = firstQuote; quote != nullptr && end - quote >= kMarkerBytes;
       quote = findQuote(quote + 1, end)) {
    if (std::memcmp(quote, kMarker, kMarkerBytes) != 0) continue;
    entry.key = firstQuote + 1;
    entry.keyBytes = static_cast<int>(quote - entry.key);
    entry.value = quote + kMarkerBytes;
    entry.valueBytes = static_cast<int>(end - entry.value);
    return true;
  }
  return false;
}

/// Cuts the last two bytes of the value off, whatever they are.
inline void cutClosing(EntryLine& entry) noexcept {
  if (entry.valueBytes < kClosingBytes) return;
  entry.valueBytes -= kClosingBytes;
  entry.value[entry.valueBytes] = '\0';
}

}  // namespace atr

#endif  // ATR_TRANSLATION_ENTRY_LINE_H
