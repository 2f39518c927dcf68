// Removes bytes of a set from the ends of a string, or from all of it.
#include <cassert>
#include <cstring>

#include "atr/strings/byte_filter.h"
#include "atr/strings/string_base.h"

using namespace atr;

atr_StringBase& atr_StringBase::LeftTrim(char const* set) {
  assert(set != nullptr);
  std::size_t const leading = std::strspn(textOf(*this), set);
  return leading != 0 ? Erase(0, static_cast<int>(leading)) : *this;
}

atr_StringBase& atr_StringBase::RightTrim(char const* set) {
  assert(set != nullptr);
  ByteFilter const filter(set);
  int end = lengthOf(*this);
  // NULs at the end are removed with them, because nobody can see them.
  while (end != 0 && (filter.drops(body[end - 1]) || body[end - 1] == '\0')) --end;
  return end < lengthOf(*this) ? Erase(end, kAll) : *this;
}

atr_StringBase& atr_StringBase::Trim(char const* set) {
  assert(set != nullptr);
  if (rep == nullptr) return *this;
  ByteFilter const filter(set);
  isolate(rep->length);
  char* const kept = filter.copy(body, body, body + textEnd());
  *kept = '\0';
  rep->length = static_cast<int>(kept - body);
  return *this;
}
