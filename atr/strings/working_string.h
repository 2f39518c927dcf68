// The library's working string: the local variable of functions outside the string classes.
#ifndef ATR_STRINGS_WORKING_STRING_H
#define ATR_STRINGS_WORKING_STRING_H

#include <cstddef>
#include <cstring>

#include "atr/frame/export.h"
#include "atr/strings/string.h"
#include "atr/strings/string_base.h"

/// A string that can be made from a string of any kind. It shares the representation and so gives
/// access to the text.
class atr_StringBasePrv : public atr_StringBase {
 public:
  /// The null representation.
  atr_StringBasePrv() noexcept = default;
  /// Shares the representation of `other`, a string of any kind.
  atr_StringBasePrv(atr_StringBase const& other) noexcept : atr_StringBase(other) {}
  atr_StringBasePrv(atr_StringBasePrv const& other) noexcept = default;
  /// Takes the representation of `other`, which is left empty.
  atr_StringBasePrv(atr_StringBasePrv&& other) noexcept { exchangeWith(other); }
  /// A copy of `text`; null counts as empty.
  atr_StringBasePrv(char const* text) : atr_StringBase(text) {}

  ATR_INLINE_API ~atr_StringBasePrv() {}  // NOLINT(modernize-use-equals-default): a symbol

  /// Becomes a copy of `text`; null counts as empty.
  atr_StringBasePrv& operator=(char const* text) {
    atr_StringBase::operator=(text);
    return *this;
  }
  /// Shares the representation of `other`, a string of any kind.
  atr_StringBasePrv& operator=(atr_StringBase const& other) {
    atr_StringBase::operator=(other);
    return *this;
  }
  /// Shares the representation of `other`.
  atr_StringBasePrv& operator=(atr_StringBasePrv const& other) {
    atr_StringBase::operator=(other);
    return *this;
  }
  /// Takes the representation of `other`, which is left empty unless it is this string.
  atr_StringBasePrv& operator=(atr_StringBasePrv&& other) noexcept {
    atr_StringBasePrv taken(static_cast<atr_StringBasePrv&&>(other));
    exchangeWith(taken);
    return *this;
  }

  /// Makes `target`, a string of any kind, share this string's representation.
  void AssignTo(atr_StringBase& target) const { assign(target, *this); }

  /// The text, never null; valid until the string changes.
  char const* c_str() const noexcept { return textOf(*this); }

  /// Appends the text of `other`.
  atr_StringBasePrv& Append(atr_StringBase const& other) {
    append(textOf(other), lengthOf(other), 0, kAll);
    return *this;
  }
  /// Appends at most `count` bytes of `text`, which must be NUL-terminated even if `count` is less.
  atr_StringBasePrv& Append(char const* text, std::size_t count) {
    append(text, narrowed(std::strlen(text)), 0, narrowed(count));
    return *this;
  }
  /// As Append, with all of the text.
  atr_StringBasePrv& operator+=(atr_StringBase const& other) { return Append(other); }
  /// As Append, with all of the text.
  atr_StringBasePrv& operator+=(char const* text) { return Append(text, kAll); }

  /// The order by unsigned bytes, up to the first NUL: -1, 0 or 1. @pre `text` is not null.
  int Compare(char const* text) const noexcept {
    int const order = std::strcmp(c_str(), text);
    return (order > 0) - (order < 0);
  }
  /// Makes the text empty; the representation stays.
  atr_StringBasePrv& Clear() {
    Erase(0, kAll);
    return *this;
  }
  /// The base's RightTrim.
  atr_StringBasePrv& RightTrim(char const* set) {
    atr_StringBase::RightTrim(set);
    return *this;
  }
  /// The base's Substitute. The count becomes an int; a negative one does nothing.
  atr_StringBasePrv& Substitute(atr_StringBase const& from, atr_StringBase const& to,
                                std::size_t count) {
    atr_StringBase::Substitute(from, to, static_cast<int>(count));
    return *this;
  }

 private:
  // A count that does not fit an int means all bytes.
  static constexpr int narrowed(std::size_t bytes) noexcept {
    return bytes < kAll ? static_cast<int>(bytes) : kAll;
  }
};

/// A new string with a copy of the text of `other`, up to its first NUL; it never shares.
inline atr_String atr_StringFromBase(atr_StringBasePrv const& other) {
  return atr_StringFromText(other.c_str());
}

#endif  // ATR_STRINGS_WORKING_STRING_H
