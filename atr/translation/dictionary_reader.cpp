// Two passes over the file: the first counts the entries whose values are UTF-8, the second stores
// entries into an array of that size. The first judges a value as it stands in the file, the second
// without its closing and with its escapes decoded, so the numbers may differ: the second pass
// never writes beyond the array.
#include "atr/translation/dictionary_reader.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>

#include "atr/encoding/encoding_table.h"
#include "atr/encoding/strict_utf8.h"
#include "atr/encoding/transcoding.h"
#include "atr/frame/memory.h"
#include "atr/frame/platform.h"
#include "atr/translation/entry_line.h"
#include "atr/translation/escapes.h"
#include "atr/translation/line_reader.h"
#include "atr/translation/translation_table.h"

using namespace atr;

namespace {

using Block = std::unique_ptr<char, MemoryRelease>;

constexpr char kSubstitute = '?';

unsigned char const* asBytes(char const* text) noexcept {
  return reinterpret_cast<unsigned char const*>(text);
}

int measure(char const* value, char substitute) noexcept {
  return atr_utf8_to_encoding(EncodingLocale, nullptr, asBytes(value), substitute);
}

bool isUtf8(char const* value) noexcept {
  return atr_encoding_validate(EncodingUtf8, asBytes(value));
}

std::size_t countEntries(LineReader& lines) noexcept {
  std::size_t count = 0;
  EntryLine entry;
  std::ptrdiff_t bytes = 0;
  while (char* const line = lines.next(bytes)) {
    if (findEntry(line, bytes, entry) && isUtf8(entry.value)) ++count;
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

// A site that checks its dictionaries asks for warnings by its environment. The environment is read
// once: the answer holds for the whole process, later loads included.
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

bool isStrictUtf8(EntryLine const& line) noexcept {
  unsigned char const* const end = asBytes(line.value) + line.valueBytes;
  return skipStrictUtf8ByChunks(asBytes(line.value), end) == end;
}

// What is known of an entry before anything is allocated for it.
struct Verdict {
  int textBytes;       // of the value in the encoding of the locale; negative if it is no UTF-8
  bool hasEscapes;     // in the key or in the value
  bool isTextAlready;  // the value is its own text: copy it
};

// A UTF-8 locale keeps strict UTF-8 as it is. Most entries of most dictionaries are such.
Verdict judge(EntryLine const& line, platform::Codeset codeset) noexcept {
  bool const hasEscapes = hasBackslash(line.key, line.value + line.valueBytes);
  if (codeset == platform::Codeset::utf8 && !hasEscapes && isStrictUtf8(line)) {
    return {line.valueBytes, hasEscapes, true};
  }
  return {measure(line.value, kSubstitute), hasEscapes, false};
}

Block copyKey(EntryLine const& line, Verdict const& verdict) noexcept {
  Block key = copyOf(line.key, line.keyBytes);
  if (key != nullptr && verdict.hasEscapes) atr_trDecodeEscapes(key.get());
  return key;
}

// Decodes the value's escapes in the line. The text that comes out is judged again, because an
// escape may stand for any byte, and measured again, so that its block is no larger than it.
Block convert(EntryLine const& line, Verdict const& verdict, bool warns) noexcept {
  bool const isEscaped = hasBackslash(line.value, line.value + line.valueBytes);
  if (isEscaped) atr_trDecodeEscapes(line.value);
  if (warns && measure(line.value, 0) == kNoForm) atr_trWarnEncoding(line.key, line.keyBytes);
  int const bytes = isEscaped ? measure(line.value, kSubstitute) : verdict.textBytes;
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

// The second pass may accept more entries than the first has counted, so the array may be full.
void keep(Block key, Block text, int capacity) noexcept {
  if (atr_trTable.count == capacity) return;
  atr_trTable.entries[atr_trTable.count++] = {key.release(), text.release()};
}

// An entry that is bad, or that there is no memory for, is left out. The site's answer is asked for
// at the first entry that is not bad, whatever its value: it holds for the whole process.
void storeEntry(EntryLine& line, int capacity, platform::Codeset codeset) noexcept {
  cutClosing(line);
  Verdict const verdict = judge(line, codeset);
  if (verdict.textBytes < 0) return atr_trWarnInvalidUtf8(line.key, line.keyBytes);
  bool const warns = warnsOfEncoding();
  Block key = copyKey(line, verdict);
  Block text =
      verdict.isTextAlready ? copyOf(line.value, line.valueBytes) : convert(line, verdict, warns);
  if (key != nullptr && text != nullptr) keep(std::move(key), std::move(text), capacity);
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
