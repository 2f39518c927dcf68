// The grammar of message templates: one scanner for the library at run time, for ATR_T at compile
// time, and for tools that check dictionaries, so that the three cannot disagree.
//
// Everything in namespace atr::detail may change with any version.
#ifndef ATR_FORMAT_TEMPLATE_GRAMMAR_H
#define ATR_FORMAT_TEMPLATE_GRAMMAR_H

#include "atr/frame/export.h"

namespace atr {
namespace detail {
inline namespace ATR_HEADER_VERSION {

inline constexpr int kMaxInt = 0x7fffffff;

/// The letters that end a conversion, in the order in which error messages list them.
inline constexpr char kConversionLetters[] = "E X c d e f g o s u x";

constexpr bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }

/// The characters between a conversion's number and its letter: flags, width and precision.
constexpr bool isLayoutCharacter(char c) noexcept {
  return isDigit(c) || c == 'l' || c == '.' || c == '-';
}

constexpr bool isConversionLetter(char c) noexcept {
  switch (c) {
    case 'E':
    case 'X':
    case 'c':
    case 'd':
    case 'e':
    case 'f':
    case 'g':
    case 'o':
    case 's':
    case 'u':
    case 'x':
      return true;
    default:
      return false;
  }
}

/// Reads digits and moves `p` behind them. A number too large for an int counts as the largest int.
constexpr int readNumber(char const*& p) noexcept {
  long long value = 0;
  for (; isDigit(*p); ++p) {
    value = value * 10 + (*p - '0');
    if (value > kMaxInt) value = kMaxInt;
  }
  return static_cast<int>(value);
}

/// A piece of a template that begins with a percent sign.
///
///     % 2 $ - 8 . 3 s
///     |     |       letter
///     |     layout
///     percent
struct Conversion {
  static constexpr int kNoNumber = -10000;

  int number;           ///< the number before `$`, or kNoNumber
  char const* percent;  ///< the percent sign
  char const* layout;   ///< the first character of flags, width and precision
  char const* letter;   ///< the character that ends the layout
};

/// Splits [p, end) into pieces and calls `sink` for each, in order:
///
/// - `sink.text(begin, end)`: a piece of text, which may be empty, with `%%` reduced to `%`;
/// - `sink.conversion(c)`: a conversion;
/// - `sink.lost(c)`: a piece that vanishes, because the character at `c.letter` is no conversion
///   letter, or is the end of the template. That character itself is text.
///
/// The syntax; with any other character in place of `letter` the piece is lost:
///
///     template   = { text | "%%" | conversion }
///     conversion = "%" [ digits "$" ] layout letter
///
/// @param find `find(p, end)` returns the first percent sign in [p, end), or `end`. The library
///   passes one that searches eight bytes at a time, which a constant expression cannot do.
/// @pre `*end` can be read, and is no character of a conversion.
template <class Find, class Sink>
constexpr void scanTemplate(char const* p, char const* end, Find const& find, Sink& sink) {
  char const* pending = p;
  for (;;) {
    p = find(p, end);
    if (p == end) break;
    sink.text(pending, p);
    Conversion conversion = {Conversion::kNoNumber, p, p + 1, p + 1};
    pending = ++p;
    if (p == end) return sink.lost(conversion);
    if (*p == '%') {
      ++p;  // the second percent sign belongs to the next piece of text
      continue;
    }
    int const number = readNumber(p);
    if (*p == '$') {
      if (p != conversion.layout) conversion.number = number;
      conversion.layout = ++p;
    }
    while (isLayoutCharacter(*p)) ++p;
    conversion.letter = p;
    if (p == end) return sink.lost(conversion);
    pending = p;  // a character that is no letter is text, even if it is a percent sign
    if (isConversionLetter(*p)) {
      sink.conversion(conversion);
      ++pending;
    } else {
      sink.lost(conversion);
    }
    ++p;
  }
  sink.text(pending, end);
}

/// The plain search for a percent sign, which a constant expression can use.
constexpr char const* findPercentByBytes(char const* p, char const* end) noexcept {
  while (p != end && *p != '%') ++p;
  return p;
}

/// Numbers the slots that have no number: from left to right, with the numbers from 1 up that no
/// other slot has. The rank of a slot is its place, from 1, when all are sorted by their numbers.
/// @param slots `count` objects with an int `position`: a number, or Conversion::kNoNumber.
/// @param marks memory for `count` + 1 bytes.
template <class Slot>
constexpr void numberSlots(Slot* slots, int count, char* marks) noexcept {
  for (int i = 0; i <= count; ++i) marks[i] = 0;
  for (int i = 0; i < count; ++i) {
    if (slots[i].position >= 0 && slots[i].position <= count) marks[slots[i].position] = 1;
  }
  int next = 1;
  for (int i = 0; i < count; ++i) {
    if (slots[i].position != Conversion::kNoNumber) continue;
    while (marks[next] != 0) ++next;
    slots[i].position = next++;
  }
}

}  // namespace ATR_HEADER_VERSION
}  // namespace detail
}  // namespace atr

#endif  // ATR_FORMAT_TEMPLATE_GRAMMAR_H
