// A line break replaces one white-space byte. So a folded text is the text itself with some bytes
// replaced, and at most its final byte missing: it is folded in place, in one copy.
#include <algorithm>
#include <cstdint>
#include <cstring>

#include "atr/frame/character_step.h"
#include "atr/frame/platform.h"
#include "atr/frame/words.h"
#include "atr/layout/line_breaking.h"
#include "atr/layout/test_mode.h"
#include "atr/strings/body_room.h"
#include "atr/strings/fresh_text.h"
#include "atr/strings/string.h"

using namespace atr;

namespace {

constexpr char kNewline = '\n';

// The test mode and its marker are asked for once, because every step over a word needs them.
struct TestMarkerCache {
  bool isFilled;
  bool testing;
  char const* marker;
  int markerLength;
};

TestMarkerCache cache = {false, false, nullptr, 0};

void fillCache() noexcept {
  cache.testing = atr_i18nTesting();
  cache.marker = atr_i18nExtraCharacters();
  cache.markerLength = static_cast<int>(std::strlen(cache.marker));
  cache.isFilled = true;
}

std::size_t asSize(std::ptrdiff_t bytes) noexcept { return static_cast<std::size_t>(bytes); }

}  // namespace

// These six are white space in every locale. isspace would ask the locale for each byte.
bool atr::isWhiteSpace(char byte) noexcept { return byte == ' ' || (byte >= '\t' && byte <= '\r'); }

int atr_skipTestMarker(char const* p, char const* end) noexcept {
  if (!cache.isFilled) fillCache();
  if (!cache.testing || end - p < cache.markerLength) return 0;
  return std::memcmp(p, cache.marker, asSize(cache.markerLength)) == 0 ? cache.markerLength : 0;
}

int atr_wordStep(char const* p, char const* end, int& markerBytes) noexcept {
  char const* const start = p;
  bool isInWord = false;
  while (p != end) {
    int const skip = atr_skipTestMarker(p, end);
    p += skip;
    markerBytes += skip;
    if (p == end) break;
    bool const isSpace = isWhiteSpace(*p);
    if (isInWord && isSpace) break;
    isInWord = !isSpace;
    p += characterStep(p, end);
  }
  return static_cast<int>(p - start);
}

char const* atr::findLineEnd(char const* line, char const* end, std::size_t limit) noexcept {
  char const* p = line;
  int markerBytes = 0;
  while (asSize(p - line - markerBytes) < limit && p != end) p += atr_wordStep(p, end, markerBytes);
  return p;
}

namespace {

// True if each of the eight bytes is above the blank: then none of them ends a word. Subtracting
// 0x21 borrows into the high bit of every smaller byte. A byte behind a smaller one may be taken
// for smaller too: the caller then looks at single bytes, so a false "no" only costs time.
bool isInsideWord(char const* p) noexcept {
  std::uint64_t const word = loadWord(p);
  return ((word - kLowBits * (' ' + 1)) & ~word & kHighBits) == 0;
}

}  // namespace

char const* atr::findLineEndByBytes(char const* line, char const* end, std::size_t limit) noexcept {
  if (asSize(end - line) <= limit) return end;
  char const* p = line + limit;
  if (isWhiteSpace(p[-1])) {
    while (p != end && isWhiteSpace(*p)) ++p;
  }
  while (end - p >= kWord && isInsideWord(p)) p += kWord;
  while (p != end && !isWhiteSpace(*p)) ++p;
  return p;
}

namespace {

using FindLineEnd = char const* (*)(char const* line, char const* end, std::size_t limit);

// The fast form skips to the limit, so no marker may occur on the way, and in the codeset no byte
// within a longer character may look like white space. Asking for the test mode fixes it for the
// process, just as the first step over a word does.
FindLineEnd chooseFindLineEnd() noexcept {
  if (!cache.isFilled) fillCache();
  return !cache.testing && platform::currentCodeset() != platform::Codeset::other
             ? findLineEndByBytes
             : findLineEnd;
}

struct Folded {
  int length;    // of the folded text
  int capacity;  // of a string to which the lines were appended one by one
};

// Breaks the text of `length` bytes at `line` in place. @pre `length` is above `limit`.
Folded foldLine(char* line, int length, std::size_t limit) noexcept {
  FindLineEnd const findEnd = chooseFindLineEnd();
  char const* const end = line + length;
  BodyRoom room;
  int position = 0;
  for (;;) {
    position = static_cast<int>(findEnd(line + position, end, limit) - line);
    room.growTo(position);
    if (position == length) return {length, room.capacity()};
    bool const isNewline = line[position] == kNewline;
    line[position++] = kNewline;
    if (position == length && !isNewline) return {length - 1, room.capacity()};
    room.growTo(position);
    if (position == length) return {length, room.capacity()};
  }
}

atr_String copyWithRoom(char const* text, int length, int capacity) {
  FreshText copy(capacity);
  std::memcpy(copy.begin(), text, asSize(length));
  return copy.finish(copy.begin() + length);
}

// The capacity of a result is defined as if its lines had been appended one by one. Mostly the copy
// already has it; otherwise the text is copied once more.
atr_String finish(atr_String&& folded, int length, int capacity) {
  if (!isSameRoom(capacity, static_cast<int>(folded.length()))) {
    return copyWithRoom(folded.c_str(), length, capacity);
  }
  folded[length] = '\0';
  folded.SetStringLength(length);
  return static_cast<atr_String&&>(folded);
}

}  // namespace

atr_String atr_String::BreakLineString(atr_String const& text, std::size_t limit) {
  std::size_t const width = std::max<std::size_t>(limit, 1);
  if (text.length() <= width) return text;
  auto const length = static_cast<int>(text.length());
  atr_String result = copyWithRoom(text.c_str(), length, length);
  Folded const folded = foldLine(&result[0], length, width);
  return finish(static_cast<atr_String&&>(result), folded.length, folded.capacity);
}

// Each line is folded by itself. Only the last one can lose its final byte, because the others end
// in a newline, which is kept. So the lines behind a folded line never move.
atr_String atr_String::AddLineBreaks(atr_String const& text, std::size_t limit, bool keepBreaks) {
  std::size_t const width = std::max<std::size_t>(limit, 1);
  if (text.length() <= width) return text;
  if (keepBreaks && std::memchr(text.c_str(), kNewline, text.length()) != nullptr) return text;
  auto const length = static_cast<int>(text.length());
  atr_String result = copyWithRoom(text.c_str(), length, length);
  char* line = &result[0];
  char* const end = line + length;
  int foldedLength = length;
  while (line != end) {
    auto* const newline = static_cast<char*>(std::memchr(line, kNewline, asSize(end - line)));
    char* const next = newline != nullptr ? newline + 1 : end;
    auto const lineLength = static_cast<int>(next - line);
    if (asSize(lineLength) > width) {
      foldedLength -= lineLength - foldLine(line, lineLength, width).length;
    }
    line = next;
  }
  return finish(static_cast<atr_String&&>(result), foldedLength, foldedLength);
}
