// Substitute is defined in passes, each of which looks from the start. The loop does just that;
// where the passes come to one sweep over the text, the sweeps beside it take linear time.
#include <algorithm>
#include <cstring>
#include <iterator>
#include <string_view>

#include "atr/strings/body_room.h"
#include "atr/strings/string_base.h"
#include "atr/strings/summary.h"

using namespace atr;

// What is replaced by what, and the sweeps that do it. Those over a body that one string alone
// holds go on from a replacement that was made at `at`, and replace at most `count` more.
struct atr_StringBase::Replacement {
  std::string_view from;
  std::string_view to;

  int growth() const noexcept {
    return static_cast<int>(to.size()) - static_cast<int>(from.size());
  }

  // The first occurrence at or behind `p`, or null.
  char* find(char* p) const noexcept {
    return from.size() == 1 ? std::strchr(p, from[0]) : std::strstr(p, from.data());
  }

  // True if putting `to` in cannot bring about an occurrence of `from` that was not there.
  bool isIndependent() const noexcept {
    if (to.empty()) return from.size() == 1;
    if (from.find(to) != from.npos || to.find(from) != to.npos) return false;
    for (std::size_t n = 1; n < std::min(from.size(), to.size()); ++n) {
      bool const meetsBefore = from.substr(from.size() - n) == to.substr(0, n);
      bool const meetsBehind = from.substr(0, n) == to.substr(to.size() - n);
      if (meetsBefore || meetsBehind) return false;
    }
    return true;
  }

  void sweepAlike(atr_StringBase& s, int at, int count) const noexcept;
  void sweepShrinking(atr_StringBase& s, int at, int count) const noexcept;
  bool sweepGrowing(atr_StringBase& s, int at, int count) const;
};

// No match can begin further ahead of the last replacement than the pattern is long. Where the
// replacement holds the pattern, every pass finds one. The events of the summary are those of this
// loop: with the summary on, nothing else moves a text.
atr_StringBase& atr_StringBase::Substitute(atr_StringBase const& from, atr_StringBase const& to,
                                           int count) {
  // Sharers keep both texts as they are, should one of them be this very string.
  atr_StringBase const pattern(from);    // NOLINT(performance-unnecessary-copy-initialization)
  atr_StringBase const replacement(to);  // NOLINT(performance-unnecessary-copy-initialization)
  int const fromLength = lengthOf(pattern);
  int const toLength = lengthOf(replacement);
  if (lengthOf(*this) == 0 || fromLength == 0 || count <= 0) return *this;
  int at = Find(textOf(pattern), 0);
  if (at == lengthOf(*this)) return *this;
  Replacement const r = {textOf(pattern), textOf(replacement)};
  // What is looked for ends at its first NUL, what is replaced does not. Only passes handle that.
  bool const isPatternWhole = std::ssize(r.from) == fromLength;
  bool const hasNul = !isPatternWhole || std::ssize(r.to) != toLength;
  if (isPatternWhole && r.to.find(r.from) != r.to.npos) {
    checkedLength(lengthOf(*this) + std::int64_t{count} * (toLength - fromLength));
    if (toLength == fromLength) count = 1;
  }
  bool const isSweep = atr_summary == nullptr && !hasNul && r.isIndependent();
  if (isSweep && r.growth() > 0 && r.sweepGrowing(*this, at, count)) return *this;
  for (; count > 0 && at != lengthOf(*this); --count) {
    replace(at, fromLength, textOf(replacement), toLength, 0, kAll);
    if (toLength == fromLength && !hasNul) {
      r.sweepAlike(*this, at, count - 1);
      break;
    }
    if (isSweep && r.growth() < 0) {
      r.sweepShrinking(*this, at, count - 1);
      break;
    }
    at = Find(textOf(pattern), std::max(0, at - fromLength + 1));
  }
  return *this;
}

namespace {

// Stores every byte, the unchanged too, which takes many at a time.
void replaceBytes(char* p, char const* end, char from, char to) noexcept {
  for (; p != end; ++p) *p = *p == from ? to : *p;
}

}  // namespace

// Of one length: nothing moves, and matches that come about are found as the loop finds them. One
// byte by another in the whole text needs no search.
void atr_StringBase::Replacement::sweepAlike(atr_StringBase& s, int at, int count) const noexcept {
  if (from.size() == 1 && count >= s.rep->length) {
    replaceBytes(s.body + at, s.body + s.textEnd(), from[0], to[0]);
    return;
  }
  char* p = s.body + at;
  for (; count > 0; --count) {
    p = find(p - std::min<std::ptrdiff_t>(p - s.body, std::ssize(from) - 1));
    if (p == nullptr) return;
    std::memcpy(p, to.data(), to.size());
  }
}

void atr_StringBase::Replacement::sweepShrinking(atr_StringBase& s, int at,
                                                 int count) const noexcept {
  char const* const end = s.body + s.rep->length;
  char* out = s.body + at + to.size();
  char* in = out;
  auto const closeUp = [&](char const* until) noexcept {
    std::memmove(out, in, static_cast<std::size_t>(until - in));
    out += until - in;
  };
  for (; count > 0; --count) {
    char* const found = find(in);
    if (found == nullptr) break;
    closeUp(found);
    if (!to.empty()) std::memcpy(out, to.data(), to.size());
    out += to.size();
    in = found + from.size();
  }
  closeUp(end);
  *out = '\0';
  s.rep->length = static_cast<int>(out - s.body);
}

// Counts first, so that the text moves once, into the room that the passes would end in. Leaves it
// to the loop if it need not move at all.
bool atr_StringBase::Replacement::sweepGrowing(atr_StringBase& s, int at, int count) const {
  int length = s.rep->length;
  int size = s.rep->refCount == 1 ? s.rep->size : 0;
  int capacity = -1;
  char* const last = s.body + at;
  int matches = 0;
  for (char* p = last; p != nullptr && matches < count; p = find(p + from.size())) {
    ++matches;
    length = checkedLength(std::int64_t{length} + growth());
    if (size > length) continue;
    capacity = length;
    size = static_cast<int>(bodySize(capacity));
  }
  if (capacity < 0) return false;
  char* in = s.body;
  char const* const end = s.body + s.rep->length;
  char* found = last;
  char* const toFree = s.get(capacity);
  char* out = s.body;
  for (; matches > 0; --matches) {
    out = std::copy(in, found, out);
    out = std::copy(to.begin(), to.end(), out);
    in = found + from.size();
    found = matches > 1 ? find(in) : nullptr;
  }
  *std::copy(static_cast<char const*>(in), end, out) = '\0';
  s.rep->length = length;
  ::operator delete(toFree);
  return true;
}
