// Reads a dictionary by the library's line reader and keeps every line with its verdict.
#include "dictionary.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <unordered_map>

#include "atr/encoding/transcoding.h"
#include "atr/translation/dictionary_reader.h"
#include "atr/translation/entry_line.h"
#include "atr/translation/escapes.h"
#include "atr/translation/line_reader.h"
#include "failure.h"
#include "files.h"
#include "messages.h"

namespace dict {

bool isUtf8(std::string_view text) {
  std::string const copy(text);
  return atr_encoding_validate(EncodingUtf8, reinterpret_cast<unsigned char const*>(copy.c_str()));
}

std::string decodeEscapes(std::string_view raw) {
  std::string text(raw.substr(0, raw.find('\0')));
  atr_trDecodeEscapes(text.data());
  text.resize(std::char_traits<char>::length(text.c_str()));
  return text;
}

std::size_t rawOffset(std::string_view raw, std::size_t at) {
  std::string const text(raw);
  std::size_t from = 0;
  for (std::size_t out = 0; out < at && from < text.size();) {
    bool const isBackslash = text[from] == '\\';
    char const* const end = isBackslash ? atr::decodeEscape(text.c_str() + from + 1).end : nullptr;
    // A backslash that begins no escape stays, and so does the character behind it.
    std::size_t const staying = isBackslash ? std::min<std::size_t>(2, at - out) : 1;
    from = end != nullptr ? static_cast<std::size_t>(end - text.c_str()) : from + staying;
    out += end != nullptr ? 1 : staying;
  }
  return std::min(from, raw.size());
}

std::string_view withoutTail(std::string_view key) { return key.substr(0, key.find("\\@")); }

namespace {

constexpr std::size_t kLongestLine = std::size_t{1} << 20;  // bytes; no dictionary comes near

[[noreturn]] void failBecause(std::string const& path, std::string const& reason) {
  throw Failure(say("%s: %s", toLocale(path), reason));
}

// The reader's rules, line by line.
class Builder {
 public:
  explicit Builder(Dictionary& dictionary) : d_(dictionary) {}

  void addLine(std::string_view piece, bool hasReturn);
  void finish();

 private:
  void addEntry(std::size_t line, std::size_t readableBytes);
  std::string_view decode(std::string_view raw);

  Dictionary& d_;
  int number_ = 1;
  bool isContinued_ = false;
  std::size_t lineBytes_ = 0;
  std::size_t counted_ = 0;  // by the reader's first pass, which looks at values with their closing
  std::string scratch_;
};

std::string_view Builder::decode(std::string_view raw) {
  std::size_t const end = raw.find_first_of(std::string_view("\\\0", 2));
  if (end == raw.npos) return raw;
  if (raw[end] == '\0') return raw.substr(0, end);
  return d_.decoded.emplace_back(decodeEscapes(raw));
}

void Builder::addLine(std::string_view piece, bool hasReturn) {
  lineBytes_ += piece.size();
  if (lineBytes_ > kLongestLine) {
    failBecause(d_.path, say("line %d has more than a megabyte; this is no dictionary", number_));
  }
  std::size_t const from = d_.bytes.size();
  d_.bytes += piece;
  Line line;
  line.hasNewline = piece.ends_with('\n');
  line.text = std::string_view(d_.bytes).substr(from, piece.size() - (line.hasNewline ? 1 : 0));
  line.number = number_;
  line.hasReturn = hasReturn;
  line.isContinued = isContinued_;
  (hasReturn ? d_.hasReturns : d_.hasNewlines) |= line.hasNewline;
  d_.lines.push_back(line);
  addEntry(d_.lines.size() - 1, std::min(piece.find('\0'), piece.size()));
  isContinued_ = !line.hasNewline;
  if (line.hasNewline) {
    ++number_;
    lineBytes_ = 0;
  }
}

// The pieces are found in a copy, since the line is kept as it is.
void Builder::addEntry(std::size_t line, std::size_t readableBytes) {
  char const* const text = d_.lines[line].text.data();
  scratch_.assign(text, readableBytes);
  atr::EntryLine found{};
  if (!atr::findEntry(scratch_.data(), static_cast<std::ptrdiff_t>(readableBytes), found)) return;
  auto const* const value = reinterpret_cast<unsigned char const*>(found.value);
  bool const isCounted = atr_encoding_validate(EncodingUtf8, value);
  counted_ += isCounted ? 1 : 0;
  auto const offset = [&](char const* p) { return text + (p - scratch_.data()); };
  int const whole = found.valueBytes;
  atr::cutClosing(found);
  Entry entry;
  entry.line = line;
  entry.rawValue = {offset(found.value), static_cast<std::size_t>(found.valueBytes)};
  entry.closing = {offset(found.value) + found.valueBytes,
                   static_cast<std::size_t>(whole - found.valueBytes)};
  if (found.keyBytes < 0) {
    entry.fate = Fate::noKey;
  } else {
    entry.rawKey = {offset(found.key), static_cast<std::size_t>(found.keyBytes)};
    entry.key = decode(entry.rawKey);
    entry.text = decode(entry.rawValue);
    if (!atr_encoding_validate(EncodingUtf8, value) || !isUtf8(entry.text)) {
      entry.fate = Fate::notUtf8;
    }
  }
  d_.lines[line].entry = static_cast<int>(d_.entries.size());
  d_.entries.push_back(entry);
}

// Only what the first pass counted has room, and of equal keys the last one is found.
void Builder::finish() {
  std::size_t stored = 0;
  std::unordered_map<std::string_view, Entry*> last;
  last.reserve(d_.entries.size());
  for (Entry& entry : d_.entries) {
    if (entry.fate != Fate::stored) continue;
    if (stored == counted_) {
      entry.fate = Fate::noRoom;
      continue;
    }
    ++stored;
    Entry*& place = last[entry.key];
    if (place != nullptr) place->isShadowed = true;
    place = &entry;
  }
}

// What has an entry is read all the same, as the library does.
void refuseBinary(Dictionary const& d) {
  if (!d.entries.empty()) return;
  std::string_view const bytes = d.bytes;
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
    failBecause(d.path, say("this is UTF-16; a dictionary is in UTF-8"));
  }
  if (bytes.find('\0') != bytes.npos) {
    failBecause(d.path, say("this is a binary file, and no dictionary"));
  }
}

}  // namespace

Dictionary readDictionary(std::string const& path) {
  FileHandle const file = openToRead(path);
  Dictionary d;
  d.path = path;
  d.bytes.reserve(sizeOf(path) + 1);
  d.lines.reserve(d.bytes.capacity() / 64);
  Builder builder(d);
  auto const reader = std::make_unique<atr::LineReader>(file.get(), false);
  std::ptrdiff_t readable = 0;
  while (char const* const line = reader->next(readable)) {
    auto const bytes = static_cast<std::size_t>(reader->wholeBytes());
    if (d.bytes.size() + bytes > d.bytes.capacity()) {
      failBecause(path, say("the file grows while it is read"));
    }
    builder.addLine({line, bytes}, reader->sourceBytes() > reader->wholeBytes());
  }
  failOnReadError(file.get(), path);
  refuseBinary(d);
  builder.finish();
  return d;
}

}  // namespace dict
