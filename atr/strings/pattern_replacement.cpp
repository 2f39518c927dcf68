// Substitute is defined as passes, each of which searches from the start of the text. The loop does
// just that, in quadratic time. Where the result is provably the same, one sweep over the text does
// it in linear time.
#include <algorithm>
#include <cstring>
#include <iterator>
#include <string_view>

#include "atr/strings/body_room.h"
#include "atr/strings/string_base.h"
#include "atr/strings/summary.h"

using namespace atr;

// A pattern and its replacement, with the sweeps. sweepAlike and sweepShrinking work on a body that
// one string alone holds: they continue behind the replacement that was made at `at`, and make at
// most `count` more. sweepGrowing begins with the occurrence at `at`.
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

  // True if a replacement can never create a new occurrence of `from`, neither inside `to` nor
  // together with the bytes beside it. One sweep then finds what all passes would find.
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

// After a replacement the next occurrence can begin at most the pattern's length before it, so each
// pass may start its search there. If the replacement contains the pattern, every pass finds one,
// and the final length is known at once. The summary counts the events of this loop, so with the
// summary on no sweep is used.
atr_StringBase& atr_StringBase::Substitute(atr_StringBase const& from, atr_StringBase const& to,
                                           int count) {
  // Shared copies keep both texts unchanged, in case one of them is this very string.
  atr_StringBase const pattern(from);    // NOLINT(performance-unnecessary-copy-initialization)
  atr_StringBase const replacement(to);  // NOLINT(performance-unnecessary-copy-initialization)
  int const fromLength = lengthOf(pattern);
  int const toLength = lengthOf(replacement);
  if (lengthOf(*this) == 0 || fromLength == 0 || count <= 0) return *this;
  int at = Find(textOf(pattern), 0);
  if (at == lengthOf(*this)) return *this;
  Replacement const r = {textOf(pattern), textOf(replacement)};
  // The search stops at the pattern's first NUL, but its whole length is replaced. Only the loop
  // handles texts with NULs.
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

// Stores unchanged bytes too: without a branch the compiler makes vector code of the loop.
void replaceBytes(char* p, char const* end, char from, char to) noexcept {
  for (; p != end; ++p) *p = *p == from ? to : *p;
}

}  // namespace

// For texts of the same length: nothing moves, and occurrences that a replacement creates are found
// as in the loop. One byte by another in the whole text needs no search.
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

// Counts the occurrences first, so that the text moves once, into a body of the capacity that the
// passes would have ended with. Returns false, with nothing done, if the text fits where it is.
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
