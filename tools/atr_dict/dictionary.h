// A dictionary as the library reads it, with what became of each line. Cutting lines, finding
// entries and decoding escapes are the library's own functions.
#ifndef ATR_TOOLS_ATR_DICT_DICTIONARY_H
#define ATR_TOOLS_ATR_DICT_DICTIONARY_H

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace dict {

/// Why a line that holds the marker gives no text.
enum class Fate {
  stored,
  noKey,    // the first quote of the line is the marker's own
  notUtf8,  // the value is no UTF-8, before or after its escapes are decoded
  noRoom,   // the reader counted fewer entries than it could then take
};

/// A line as the reader delivers it: without its line end, at most 8191 bytes.
struct Line {
  std::string_view text;
  int number = 0;  // of the line in the file, from 1; a long line has several pieces
  bool hasNewline = false;
  bool hasReturn = false;    // CR LF
  bool isContinued = false;  // a piece of a long line that is not its first
  int entry = -1;            // place in Dictionary::entries
};

struct Entry {
  std::size_t line = 0;       // place in Dictionary::lines
  std::string_view rawKey;    // as in the line
  std::string_view rawValue;  // as in the line, without the two bytes that the reader cuts
  std::string_view closing;   // those two bytes, or fewer
  std::string_view key;       // escapes decoded, as far as the first NUL
  std::string_view text;      // the same of the value, in UTF-8
  Fate fate = Fate::stored;
  bool isShadowed = false;  // a later entry has the same key
};

struct Dictionary {
  std::string path;  // as the user gave it
  std::vector<Line> lines;
  std::vector<Entry> entries;
  bool hasReturns = false;   // a line ends in CR LF
  bool hasNewlines = false;  // a line ends in LF alone

  std::string bytes;                // what the views of lines look at
  std::deque<std::string> decoded;  // what the views of keys and texts with escapes look at

  Line const& lineOf(Entry const& entry) const { return lines[entry.line]; }
};

/// Reads a dictionary in one pass; memory is a small multiple of the file.
/// @throw Failure if the file cannot be read to its end or is no dictionary: a directory, binary,
///   UTF-16, or with a line of more than a megabyte.
Dictionary readDictionary(std::string const& path);

/// The bytes that a key or a value stands for, as far as the first NUL.
std::string decodeEscapes(std::string_view raw);

/// The place in `raw` that the decoded byte at `at` comes from.
std::size_t rawOffset(std::string_view raw, std::size_t at);

/// True for UTF-8 in the library's wide sense.
bool isUtf8(std::string_view text);

/// The key without its tail, which begins at the first `\@`.
std::string_view withoutTail(std::string_view key);

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_DICTIONARY_H
