// The public string. A copy shares the text, and a write to a shared text copies it first. The
// rules for all operations are in string_base.h.
#ifndef ATR_STRINGS_STRING_H
#define ATR_STRINGS_STRING_H

#include <cstddef>

#include "atr/frame/export.h"
#include "atr/strings/string_arguments.h"
#include "atr/strings/string_base.h"

/// A counted text of bytes with a NUL behind it, copied on write. Copying a string costs one
/// increment. A text of up to 238 bytes takes one allocation, a longer one two.
///
/// Positions, lengths and counts may be of any integer type; `Find` and `rfind` return an int. With
/// atr/std.h a string can be compared, hashed and printed, and converts to and from the strings of
/// the standard library.
class atr_String : public atr_StringBase {
 public:
  /// As a count: all that there is, 0x7fffffff.
  using atr_StringBase::kAll;
  /// A position, a length or a count in bytes, made from any integer.
  using Bytes = atr::detail::ByteCount;

  /// The null representation: an empty string that allocates nothing.
  atr_String() noexcept = default;
  /// Shares the representation of `other`.
  atr_String(atr_String const& other) noexcept = default;
  /// Takes the representation of `other`, which is left empty.
  atr_String(atr_String&& other) noexcept { exchangeWith(other); }
  /// A copy of `text`; null and empty texts give the null representation.
  atr_String(char const* text) : atr_StringBase(text) {}
  /// A copy of the first `length` bytes of `text`; always has a representation.
  atr_String(char const* text, Bytes length) : atr_StringBase(text, length) {}
  /// A copy of a std::string or a std::string_view, NULs included; needs atr/std.h.
  template <class Text, atr::detail::EnableIf<atr::detail::StandardText<Text>::kKnown> = 0>
  atr_String(Text const& text) {
    if (text.size() != 0) *this = atr_String(text.data(), text.size());
  }

  /// The text of a number: `short`, `int`, their unsigned kin, `float` and `double`, printed as
  /// `%d`, `%u`, `%g` and `%.15g`. A `char` or a `bool` does not compile; a cast says what is
  /// meant.
  template <class Number, class Small = typename atr::detail::NumberType<Number>::Small>
  explicit atr_String(Number value) : atr_StringBase(static_cast<Small>(value)) {}
  /// The same for `long`, `long long` and their unsigned kin, in decimal.
  template <class Number, class Wide = typename atr::detail::NumberType<Number>::Wide, int = 0>
  explicit atr_String(Number value) : atr_String(atr::detail::Decimal(static_cast<Wide>(value))) {}

  /// Refers to `text` without a copy until the first write. `text` must outlive every string that
  /// shares it.
  atr_String(char const* text, int length, Borrow how) : atr_StringBase(text, length, how) {}
  /// Takes over a block of operator new that holds `length` bytes of text and a NUL.
  atr_String(char* text, int length, Adopt how) : atr_StringBase(text, length, how) {}
  /// An empty string with room for `capacity` bytes.
  atr_String(Bytes capacity, PreSizeEnm how) : atr_StringBase(capacity, how) {}

  ATR_INLINE_API ~atr_String() {}  // NOLINT(modernize-use-equals-default): a symbol

  /// Shares the representation of `other`.
  atr_String& operator=(atr_String const& other) {
    atr_StringBase::operator=(other);
    return *this;
  }
  /// Takes the representation of `other`, which is left empty unless it is this string.
  atr_String& operator=(atr_String&& other) noexcept {
    atr_String taken(static_cast<atr_String&&>(other));
    exchangeWith(taken);
    return *this;
  }
  /// Becomes a copy of `text`, in the present body if it has room; null counts as empty.
  atr_String& operator=(char const* text) {
    atr_StringBase::operator=(text);
    return *this;
  }

  /// Bytes of text.
  std::size_t length() const noexcept { return static_cast<std::size_t>(lengthOf(*this)); }
  /// True for a text of no bytes, with a representation or without.
  bool IsEmpty() const noexcept { return length() == 0; }
  /// The text, never null; valid until the string changes.
  char const* c_str() const noexcept { return textOf(*this); }
  /// The string as a range of bytes; valid as long as c_str().
  char const* begin() const noexcept { return c_str(); }
  /// The NUL behind the last byte.
  char const* end() const noexcept { return c_str() + length(); }
  /// A copy as a std::string, or a std::string_view that is valid as long as c_str(); needs
  /// atr/std.h.
  template <class Text, atr::detail::EnableIf<atr::detail::StandardText<Text>::kKnown> = 0>
  operator Text() const {
    return Text(c_str(), length());
  }

  /// A new string of at most `count` bytes from `position`; empty if `position` is at the end or
  /// beyond. It never shares and always has a representation.
  ATR_INLINE_API atr_String Substr(std::size_t position, std::size_t count) const {
    std::size_t const from = position < length() ? position : length();
    std::size_t const rest = length() - from;
    return atr_String(c_str() + from, static_cast<int>(count < rest ? count : rest));
  }
  /// The same for other integers, such as a result of Find and kAll.
  template <class Position, class Count>
  atr_String Substr(Position position, Count count) const {
    return Substr(static_cast<std::size_t>(position), static_cast<std::size_t>(count));
  }
  /// Field number `index`, from 0, of the text split at each `delimiter` byte. A field that is
  /// empty or does not exist gives the null representation. The text ends at its first NUL.
  ATR_API atr_String extract(int index, char delimiter) const;
  /// The same, and in the field each `escape` is removed and each pair of escapes becomes one. An
  /// escape does not protect a delimiter.
  ATR_API atr_String extract(int index, char delimiter, char escape) const;
  /// Appends the text of `other`, which may be this string.
  ATR_API atr_String& Append(atr_String const& other);

  /// Folds `text` into lines. A line ends behind the first word with which it has `limit` bytes or
  /// more, so the limit is a minimum width. The newline replaces the white-space byte at the break.
  /// A newline at the end of the text is kept, another white-space byte there may be dropped.
  /// Characters are those of the process locale. A text of at most `limit` bytes is returned
  /// shared. O(length).
  /// @param limit bytes, at least 1; 0 counts as 1.
  ATR_API static atr_String BreakLineString(atr_String const& text, std::size_t limit);
  /// Folds each line of `text` by itself. With `keepBreaks` a text that contains a newline is
  /// returned unchanged and shared.
  ATR_API static atr_String AddLineBreaks(atr_String const& text, std::size_t limit,
                                          bool keepBreaks);

  /// Replaces the first `%d` by `value`, or with a `position` other than 0 the first `%position$d`.
  /// Without one the string is unchanged. Nothing is translated.
  ATR_API atr_String& ReplaceNonTranslated(int position, int value);
  /// The same for the first `%s` or `%position$s`. A null value counts as empty.
  ATR_API atr_String& ReplaceNonTranslated(int position, atr_StringBase const& value);
  ATR_API atr_String& ReplaceNonTranslated(int position, char const* value);
  /// The same for the first occurrence of any text; a null or empty `pattern` is never found.
  ATR_API atr_String& ReplaceNonTranslated(char const* pattern, atr_StringBase const& value);
  ATR_API atr_String& ReplaceNonTranslated(char const* pattern, char const* value);

  /// @name The operations of the base
  /// @{

  /// The operation of atr_StringBase, documented there. One that changes the string returns it.
  void Delete() { atr_StringBase::Delete(); }
  void isolate(Bytes n) { atr_StringBase::isolate(n); }
  char* get(Bytes n) { return atr_StringBase::get(n); }
  atr_String& append(char const* src, Bytes srcLength, Bytes srcPos, Bytes count) {
    return self(atr_StringBase::append(src, srcLength, srcPos, count));
  }
  atr_String& Erase(Bytes pos, Bytes count) { return self(atr_StringBase::Erase(pos, count)); }
  atr_String& insert(Bytes pos, char const* src, Bytes srcLength, Bytes srcPos, Bytes count) {
    return self(atr_StringBase::insert(pos, src, srcLength, srcPos, count));
  }
  atr_String& replace(Bytes pos, Bytes count, char const* src, Bytes srcLength, Bytes srcPos,
                      Bytes srcCount) {
    return self(atr_StringBase::replace(pos, count, src, srcLength, srcPos, srcCount));
  }
  atr_String& Replace(Bytes pos, Bytes count, char const* src, Bytes srcLength) {
    return self(atr_StringBase::Replace(pos, count, src, srcLength));
  }
  char operator[](Bytes i) const { return atr_StringBase::operator[](i); }
  char& operator[](Bytes i) { return atr_StringBase::operator[](i); }
  void SetStringLength(Bytes n) { atr_StringBase::SetStringLength(n); }
  int Find(char const* text, Bytes pos) const { return atr_StringBase::Find(text, pos); }
  int rfind(char const* text, Bytes textLength, Bytes lastStart) const {
    return atr_StringBase::rfind(text, textLength, lastStart);
  }
  atr_String& Substitute(atr_StringBase const& from, atr_StringBase const& to, Bytes count) {
    return self(atr_StringBase::Substitute(from, to, count));
  }
  /// The same with one or two plain texts.
  atr_String& Substitute(char const* from, char const* to, Bytes count) {
    return Substitute(atr_String(from), atr_String(to), count);
  }
  atr_String& Substitute(atr_StringBase const& from, char const* to, Bytes count) {
    return Substitute(from, atr_String(to), count);
  }
  atr_String& Substitute(char const* from, atr_StringBase const& to, Bytes count) {
    return Substitute(atr_String(from), to, count);
  }
  /// The base's Substr, which only measures; its name is taken here.
  int SubstrLength(Bytes pos, Bytes count) const { return atr_StringBase::Substr(pos, count); }
  atr_String& LeftTrim(char const* set) { return self(atr_StringBase::LeftTrim(set)); }
  atr_String& RightTrim(char const* set) { return self(atr_StringBase::RightTrim(set)); }
  atr_String& Trim(char const* set) { return self(atr_StringBase::Trim(set)); }
  atr_String& ToLower() { return self(atr_StringBase::ToLower()); }
  atr_String& ToUpper() { return self(atr_StringBase::ToUpper()); }
  atr_String& Capitalize() { return self(atr_StringBase::Capitalize()); }
  atr_String& Uncapitalize() { return self(atr_StringBase::Uncapitalize()); }
  atr_String& Reverse() { return self(atr_StringBase::Reverse()); }

  /// @}

 private:
  explicit atr_String(atr::detail::Decimal const& number)
      : atr_StringBase(number.begin(), number.bytes()) {}

  static atr_String& self(atr_StringBase& base) noexcept { return static_cast<atr_String&>(base); }
};

/// The two texts one behind the other, in a string of its own. The operands do not change; the body
/// of a temporary left operand is used again.
ATR_API atr_String operator+(atr_String left, atr_String const& right);

/// A new string with a copy of `text`; a null pointer gives the empty string.
inline atr_String atr_StringFromText(char const* text) { return atr_String(text); }

#endif  // ATR_STRINGS_STRING_H
