// The grammar of message templates: one scanner for the library at run time, for the checks of
// ATR_T at compile time, and for tools that judge dictionaries.
//
// What is in namespace atr::detail may change with any version.
#ifndef ATR_FORMAT_TEMPLATE_GRAMMAR_H
#define ATR_FORMAT_TEMPLATE_GRAMMAR_H

#include "atr/frame/export.h"

namespace atr {
namespace detail {
inline namespace ATR_HEADER_VERSION {

inline constexpr int kMaxInt = 0x7fffffff;

/// The letters that end a conversion, in the order in which messages to people name them.
inline constexpr char kConversionLetters[] = "E X c d e f g o s u x";

constexpr bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }

/// The characters between a conversion's number and its letter: flags, width and precision.
constexpr bool isRunCharacter(char c) noexcept {
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

/// Reads digits and moves `p` behind them. What an int cannot hold counts as the largest int.
constexpr int readNumber(char const*& p) noexcept {
  long long value = 0;
  for (; isDigit(*p); ++p) {
    value = value * 10 + (*p - '0');
    if (value > kMaxInt) value = kMaxInt;
  }
  return static_cast<int>(value);
}

/// A piece of a template from a percent sign on.
///
///     % 2 $ - 8 . 3 s
///     |     |       letter
///     |     run
///     percent
struct Conversion {
  static constexpr int kNoNumber = -10000;

  int number;           ///< the number before `$`, or kNoNumber
  char const* percent;  ///< the percent sign
  char const* run;      ///< the first character of flags, width and precision
  char const* letter;   ///< the character that ends the run
};

/// Hands the pieces of [p, end) to `sink` in their order:
///
/// - `sink.text(begin, end)`: a piece of text, which may be empty, with `%%` reduced to `%`;
/// - `sink.conversion(c)`: a conversion;
/// - `sink.lost(c)`: a piece that leaves nothing behind, since the character at `c.letter` is no
///   conversion letter, or is the end of the template. That character itself is text.
///
/// The syntax, where any other character in the place of `letter` makes the piece a lost one:
///
///     template   = { text | "%%" | conversion }
///     conversion = "%" [ digits "$" ] run letter
///
/// @param find `find(p, end)` is the first percent sign in [p, end), or `end`. The library searches
///   by words, which a constant expression cannot.
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
      ++p;  // and the second of the pair stays pending
      continue;
    }
    int const number = readNumber(p);
    if (*p == '$') {
      if (p != conversion.run) conversion.number = number;
      conversion.run = ++p;
    }
    while (isRunCharacter(*p)) ++p;
    conversion.letter = p;
    if (p == end) return sink.lost(conversion);
    pending = p;  // a character that makes it no conversion stays, and is not looked at again
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

/// The search for percent signs that a constant expression can do.
constexpr char const* findPercentByBytes(char const* p, char const* end) noexcept {
  while (p != end && *p != '%') ++p;
  return p;
}

/// Gives the slots without a number, from left to right, the numbers from 1 up that no slot holds.
/// A value's rank is the place of its slot in the order of these numbers, from 1.
/// @param slots `count` of a type with an int `position`: a number, or Conversion::kNoNumber.
/// @param marks room for `count` + 1 bytes.
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
