// Finds the key and the value within one line of a dictionary.
//
//     line = { byte } "'" key "'] = r'" value closing
#ifndef ATR_TRANSLATION_ENTRY_LINE_H
#define ATR_TRANSLATION_ENTRY_LINE_H

#include <cstddef>
#include <cstring>

namespace atr {

constexpr char kMarker[] = "'] = r'";
constexpr std::ptrdiff_t kMarkerBytes = sizeof kMarker - 1;
constexpr int kClosingBytes = 2;  // a quote and a newline; what really stands there is not read

struct EntryLine {
  char* key;
  int keyBytes;  // negative if the first quote of the line is the one that begins the marker
  char* value;   // goes up to the NUL of the line; the closing belongs to it until it is cut
  int valueBytes;
};

inline char* findQuote(char* p, char const* end) noexcept {
  return static_cast<char*>(std::memchr(p, '\'', static_cast<std::size_t>(end - p)));
}

/// Finds key and value around the first marker in a line of `bytes` bytes. A line without a marker
/// is no entry: false then, and `entry` is unchanged.
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

/// Removes the closing from the value, whatever bytes it is made of.
inline void cutClosing(EntryLine& entry) noexcept {
  if (entry.valueBytes < kClosingBytes) return;
  entry.valueBytes -= kClosingBytes;
  entry.value[entry.valueBytes] = '\0';
}

}  // namespace atr

#endif  // ATR_TRANSLATION_ENTRY_LINE_H
