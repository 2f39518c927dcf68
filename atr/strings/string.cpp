// The operations of the public string that the base does not have: fields, appending, operator+.
#include "atr/strings/string.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "atr/frame/words.h"
#include "atr/strings/body_room.h"

using namespace atr;

namespace {

struct Field {
  char const* text;  // null for a field that is empty or does not exist
  int bytes;
};

// The end of the field at `p`: a delimiter, a NUL, or `end`. Examines eight bytes at a time.
char const* fieldEnd(char const* p, char const* end, char delimiter) noexcept {
  std::uint64_t const pattern = wordOf(delimiter);
  for (; end - p >= kWord; p += kWord) {
    std::uint64_t const word = loadWord(p);
    std::uint64_t const stops = zeroBytes(word ^ pattern) | zeroBytes(word);
    if (stops != 0) return p + firstMark(stops);
  }
  while (p != end && *p != delimiter && *p != '\0') ++p;
  return p;
}

// The position behind delimiter number `index`, counted from 1, or null if there are fewer. Counts
// the delimiters of eight bytes at a time; single bytes are left to the end of the text.
char const* fieldBegin(char const* p, char const* end, char delimiter, int index) noexcept {
  std::uint64_t const pattern = wordOf(delimiter);
  for (; end - p >= kWord; p += kWord) {
    std::uint64_t const word = loadWord(p);
    std::uint64_t delimiters = zeroBytes(word ^ pattern);
    int const count = countMarks(delimiters);
    if (zeroBytes(word) != 0) break;
    if (count < index) {
      index -= count;
      continue;
    }
    for (; index > 1; --index) delimiters &= delimiters - 1;
    return p + firstMark(delimiters) + 1;
  }
  for (; p != end && *p != '\0'; ++p) {
    if (*p == delimiter && --index == 0) return p + 1;
  }
  return nullptr;
}

// A NUL as delimiter never matches, because the text ends at its first NUL.
Field findField(atr_String const& string, int index, char delimiter) noexcept {
  if (index < 0) return {nullptr, 0};
  char const* const text = string.c_str();
  char const* const textEnd = text + string.length();
  char const* const begin = index > 0 ? fieldBegin(text, textEnd, delimiter, index) : text;
  if (begin == nullptr) return {nullptr, 0};
  char const* const end = fieldEnd(begin, textEnd, delimiter);
  return {end != begin ? begin : nullptr, static_cast<int>(end - begin)};
}

int roomFor(Field const& field) { return checkedLength(std::int64_t{field.bytes} + 1); }

}  // namespace

atr_String atr_String::extract(int index, char delimiter) const {
  atr_String result;
  Field const field = findField(*this, index, delimiter);
  if (field.text == nullptr) return result;
  result.isolate(roomFor(field));
  copyBytes(result.body, field.text, static_cast<std::size_t>(field.bytes));
  result.body[field.bytes] = '\0';
  result.rep->length = field.bytes;
  return result;
}

atr_String atr_String::extract(int index, char delimiter, char escape) const {
  atr_String result;
  Field const field = findField(*this, index, delimiter);
  if (field.text == nullptr) return result;
  result.isolate(roomFor(field));
  char* out = result.body;
  for (char const *p = field.text, *const end = p + field.bytes; p != end; ++p) {
    if (*p == escape) {
      if (p[1] != escape) continue;
      ++p;  // of a pair of escapes the second one is kept
    }
    *out++ = *p;
  }
  *out = '\0';
  result.rep->length = static_cast<int>(out - result.body);
  return result;
}

atr_String& atr_String::Append(atr_String const& other) {
  return append(other.c_str(), static_cast<int>(other.length()), 0, kAll);
}

atr_String operator+(atr_String left, atr_String const& right) {
  left.Append(right);
  return left;
}
