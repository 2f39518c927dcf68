// What the public string adds to the base.
#include "atr/strings/string.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr int kAll = 0x7fffffff;

struct Field {
  char const* text;  // null for a field that is empty or not there
  int bytes;
};

char const* fieldEnd(char const* p, char const* textEnd, char delimiter) noexcept {
  void const* const found = std::memchr(p, delimiter, static_cast<std::size_t>(textEnd - p));
  return found != nullptr ? static_cast<char const*>(found) : textEnd;
}

// A NUL as delimiter never matches, since the text ends there.
Field findField(atr_String const& string, int index, char delimiter) noexcept {
  if (index < 0 || string.IsEmpty()) return {nullptr, 0};
  char const* text = string.c_str();
  char const* const textEnd = text + std::strlen(text);
  char const* end = fieldEnd(text, textEnd, delimiter);
  for (; index > 0; --index) {
    if (end == textEnd) return {nullptr, 0};
    text = end + 1;
    end = fieldEnd(text, textEnd, delimiter);
  }
  return {end != text ? text : nullptr, static_cast<int>(end - text)};
}

}  // namespace

atr_String atr_String::Substr(std::size_t position, std::size_t count) const {
  std::size_t const from = std::min(position, length());
  return atr_String(c_str() + from, static_cast<int>(std::min(count, length() - from)));
}

atr_String atr_String::extract(int index, char delimiter) const {
  atr_String result;
  Field const field = findField(*this, index, delimiter);
  if (field.text == nullptr) return result;
  result.isolate(field.bytes + 1);
  std::memcpy(result.body, field.text, static_cast<std::size_t>(field.bytes));
  result.body[field.bytes] = '\0';
  result.SetStringLength(field.bytes);
  return result;
}

atr_String atr_String::extract(int index, char delimiter, char escape) const {
  atr_String result;
  Field const field = findField(*this, index, delimiter);
  if (field.text == nullptr) return result;
  result.isolate(field.bytes + 1);
  char* out = result.body;
  for (char const *p = field.text, *const end = p + field.bytes; p != end; ++p) {
    if (*p == escape) {
      if (p[1] != escape) continue;
      ++p;  // of a pair the second stays
    }
    *out++ = *p;
  }
  *out = '\0';
  result.SetStringLength(static_cast<int>(out - result.body));
  return result;
}

atr_String& atr_String::Append(atr_String const& other) {
  return append(other.c_str(), static_cast<int>(other.length()), 0, kAll);
}

atr_String operator+(atr_String left, atr_String const& right) {
  left.Append(right);
  return left;
}
