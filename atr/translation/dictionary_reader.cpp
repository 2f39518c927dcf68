// Two passes: one counts the entries whose texts look good, one stores them into an array of that
// size. They judge different texts, so the second may find fewer or more; it never writes beyond.
#include "atr/translation/dictionary_reader.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "atr/encoding/encoding_table.h"
#include "atr/encoding/strict_utf8.h"
#include "atr/encoding/transcoding.h"
#include "atr/frame/memory.h"
#include "atr/frame/platform.h"
#include "atr/translation/entry_line.h"
#include "atr/translation/line_reader.h"
#include "atr/translation/translation_table.h"

using namespace atr;

namespace {

using Block = std::unique_ptr<char, MemoryRelease>;

constexpr char kSubstitute = '?';

unsigned char const* asBytes(char const* text) noexcept {
  return reinterpret_cast<unsigned char const*>(text);
}

bool isStrictUtf8(EntryLine const& line) noexcept {
  unsigned char const* const end = asBytes(line.value) + line.valueBytes;
  return skipStrictUtf8ByChunks(asBytes(line.value), end) == end;
}

int measure(char const* value, char substitute) noexcept {
  return atr_utf8_to_encoding(EncodingLocale, nullptr, asBytes(value), substitute);
}

// What is strict is what most texts are, and is seen at once.
bool isUtf8(EntryLine const& line) noexcept {
  return isStrictUtf8(line) || atr_encoding_validate(EncodingUtf8, asBytes(line.value));
}

std::size_t countEntries(LineReader& lines) noexcept {
  std::size_t count = 0;
  EntryLine entry;
  std::ptrdiff_t bytes = 0;
  while (char* const line = lines.next(bytes)) {
    if (findEntry(line, bytes, entry) && isUtf8(entry)) ++count;
  }
  return count;
}

Block allocate(std::size_t bytes) noexcept { return Block(static_cast<char*>(mem_Malloc(bytes))); }

Block copyOf(char const* text, int bytes) noexcept {
  auto const size = static_cast<std::size_t>(bytes);
  Block block = allocate(size + 1);
  if (block == nullptr) return block;
  std::memcpy(block.get(), text, size);
  block.get()[bytes] = '\0';
  return block;
}

// A site that checks its dictionaries asks for warnings; the answer holds for the whole process.
bool warnsOfEncoding() noexcept {
  enum class Flag { unknown, off, on };
  static Flag flag = Flag::unknown;
  if (flag == Flag::unknown) {
    char const* const site = std::getenv("ZELTRA_SITE");
    flag = site != nullptr && std::strcmp(site, "qdn") == 0 ? Flag::on : Flag::off;
  }
  return flag == Flag::on;
}

bool hasBackslash(char const* begin, char const* end) noexcept {
  return std::memchr(begin, '\\', static_cast<std::size_t>(end - begin)) != nullptr;
}

// The value is judged before and after its escapes are decoded. Without escapes the first measure
// stands; with them the text is measured again, so that its block is as large as what is written.
Block convertValue(EntryLine const& line, int measured, bool warns) noexcept {
  int bytes = measured;
  bool const isEscaped = hasBackslash(line.value, line.value + line.valueBytes);
  if (isEscaped) atr_trDecodeEscapes(line.value);
  if (warns && measure(line.value, 0) == kNoForm) atr_trWarnEncoding(line.key, line.keyBytes);
  if (isEscaped) bytes = measure(line.value, kSubstitute);
  if (bytes < 0) {
    atr_trWarnInvalidUtf8(line.key, line.keyBytes);
    return nullptr;
  }
  Block text = allocate(static_cast<std::size_t>(bytes) + 1);
  if (text != nullptr) {
    atr_utf8_to_encoding(EncodingLocale, reinterpret_cast<unsigned char*>(text.get()),
                         asBytes(line.value), kSubstitute);
  }
  return text;
}

// Takes the entry over unless it is bad, there is no memory for it, or the array is full. The first
// entry that is not bad fixes the site's answer, whatever its value.
void storeEntry(EntryLine& line, int capacity, platform::Codeset codeset) noexcept {
  cutClosing(line);
  // Strict UTF-8 without escapes is what a UTF-8 locale makes of it.
  bool const mayHaveEscapes = hasBackslash(line.key, line.value + line.valueBytes);
  bool const staysSo = codeset == platform::Codeset::utf8 && !mayHaveEscapes && isStrictUtf8(line);
  int const measured = staysSo ? line.valueBytes : measure(line.value, kSubstitute);
  if (measured < 0) {
    atr_trWarnInvalidUtf8(line.key, line.keyBytes);
    return;
  }
  bool const warns = warnsOfEncoding();
  Block key = copyOf(line.key, line.keyBytes);
  Block text = staysSo ? copyOf(line.value, measured) : convertValue(line, measured, warns);
  if (key == nullptr || text == nullptr || atr_trTable.count == capacity) return;
  if (mayHaveEscapes) atr_trDecodeEscapes(key.get());
  atr_trTable.entries[atr_trTable.count++] = {key.release(), text.release()};
}

void warn(char const* text, char const* key, int length) noexcept {
  std::fprintf(stderr, "WARNING: atr: %s\n\"%.*s\"\n\n", text, length, key);
}

}  // namespace

void atr_trReadDictionary(std::FILE* stream) noexcept {
  LineReader lines(stream);
  std::size_t const counted = std::min<std::size_t>(countEntries(lines), INT_MAX);
  if (counted == 0) return;
  atr_trTable.entries =
      static_cast<TranslationEntry*>(mem_Calloc(counted, sizeof(TranslationEntry)));
  if (atr_trTable.entries == nullptr) return;
  lines.rewind();
  platform::Codeset const codeset = platform::currentCodeset();
  EntryLine entry;
  std::ptrdiff_t bytes = 0;
  while (char* const line = lines.next(bytes)) {
    if (findEntry(line, bytes, entry) && entry.keyBytes >= 0) {
      storeEntry(entry, static_cast<int>(counted), codeset);
    }
  }
}

void atr_trWarnInvalidUtf8(char const* key, int length) noexcept {
  warn("Invalid UTF-8 string.", key, length);
}

void atr_trWarnEncoding(char const* key, int length) noexcept {
  warn("Failure encoding in the current locale.", key, length);
}
