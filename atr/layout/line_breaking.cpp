// A break takes the place of one white-space byte, so that a folded text is the text itself with
// some bytes replaced, less a final one at the most. It is folded in place, in a copy made once.
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

// The six of every locale.
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

// Eight bytes of which none is a blank or a control character: none of them ends a word.
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

// The look at the test mode fixes it for the process, as the first step over a word does.
FindLineEnd chooseFindLineEnd() noexcept {
  if (!cache.isFilled) fillCache();
  return !cache.testing && platform::currentCodeset() != platform::Codeset::other
             ? findLineEndByBytes
             : findLineEnd;
}

struct Folded {
  int length;    // of the folded text
  int capacity;  // that a string comes to which is appended line by line
};

// Breaks the `length` bytes at `line`, which are more than `limit`, in place.
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

// Gives a folded text the room that it is defined to have, which is mostly what it was folded in.
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

// Only the last line can lose its final byte: the others end in a newline, which survives.
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
