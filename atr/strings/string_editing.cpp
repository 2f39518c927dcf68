// Edits of a string's bytes. All that change the length use splice, which copies each byte that is
// kept at most once.
#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstring>
#include <new>

#include "atr/strings/body_room.h"
#include "atr/strings/string_base.h"

using namespace atr;

namespace {

std::size_t asSize(int bytes) noexcept { return static_cast<std::size_t>(bytes); }

}  // namespace

// Replaces the `removed` bytes at `pos` by a gap of `inserted` bytes, which the caller fills. The
// tail moves together with its NUL.
void atr_StringBase::splice(int pos, int removed, int inserted) {
  char const* const oldBody = textOf(*this);
  int const oldLength = lengthOf(*this);
  int const newLength = checkedLength(std::int64_t{oldLength} - removed + inserted);
  char* const toFree = get(newLength);
  char const* const tail = oldBody + pos + removed;
  std::size_t const tailBytes = asSize(oldLength - pos - removed + 1);
  if (body == oldBody) {
    if (removed != inserted) std::memmove(body + pos + inserted, tail, tailBytes);
  } else {
    std::memcpy(body, oldBody, asSize(pos));
    std::memcpy(body + pos + inserted, tail, tailBytes);
    ::operator delete(toFree);
  }
  rep->length = newLength;
}

atr_StringBase& atr_StringBase::Erase(int pos, int count) {
  if (rep == nullptr) return *this;
  int const from = std::clamp(pos, 0, rep->length);
  splice(from, std::clamp(count, 0, rep->length - from), 0);
  return *this;
}

atr_StringBase& atr_StringBase::insert(int pos, char const* src, int srcLength, int srcPos,
                                       int count) {
  return replace(pos, 0, src, srcLength, srcPos, count);
}

atr_StringBase& atr_StringBase::replace(int pos, int count, char const* src, int srcLength,
                                        int srcPos, int srcCount) {
  int const length = lengthOf(*this);
  int const at = std::clamp(pos, 0, length);
  int const removed = std::clamp(count, 0, length - at);
  int const from = std::clamp(srcPos, 0, std::max(srcLength, 0));
  int const inserted = std::clamp(srcCount, 0, std::max(srcLength, 0) - from);
  if (inserted > 0 && isAtRisk(src + from)) return Replace(at, removed, src + from, inserted);
  splice(at, removed, inserted);
  if (inserted > 0) std::memcpy(body + at, src + from, asSize(inserted));
  return *this;
}

atr_StringBase& atr_StringBase::Replace(int pos, int count, char const* src, int srcLength) {
  atr_StringBase const copy(src, srcLength);
  return replace(pos, count, copy.body, copy.rep->length, 0, kAll);
}

// Spare bytes of a body may be read, because they may be written. A borrowed text has none: only
// its length is known.
char atr_StringBase::operator[](int i) const {
  if (rep == nullptr) return '\0';
  int const room = rep->size > 0 ? rep->size : rep->length;
  return i >= 0 && i < room ? body[i] : '\0';
}

// An index behind the text may still be inside the body. For one outside, the byte behind the NUL
// stands in, so that a write through the reference is harmless.
char& atr_StringBase::operator[](int i) {
  int const length = lengthOf(*this);
  std::int64_t const room = isSoleOwnerWithRoom(length) ? rep->size : bodySize(length);
  bool const isInBody = i >= 0 && i < room;
  isolate(isInBody ? length : checkedLength(std::int64_t{length} + 1));
  return body[isInBody ? i : length + 1];
}

void atr_StringBase::SetStringLength(int n) {
  if (rep == nullptr) return;
  int const most =
      rep->size > 0 ? rep->size - 1 : INT_MAX;  // the size of a borrowed text is not known
  rep->length = std::clamp(n, 0, most);
}

atr_StringBase& atr_StringBase::Reverse() {
  if (rep == nullptr) return *this;
  isolate(rep->length);
  std::reverse(body, body + rep->length);
  return *this;
}
