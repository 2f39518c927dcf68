// The template syntax: a scan that tells texts from conversions, and the numbers in both.
#ifndef ATR_FORMAT_TEMPLATE_SCAN_H
#define ATR_FORMAT_TEMPLATE_SCAN_H

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>

#include "atr/frame/words.h"

namespace atr {

constexpr bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }

/// Reads digits and moves `p` behind them. What an int cannot hold counts as INT_MAX.
inline int readNumber(char const*& p) noexcept {
  std::int64_t value = 0;
  for (; isDigit(*p); ++p) value = std::min<std::int64_t>(value * 10 + (*p - '0'), INT_MAX);
  return static_cast<int>(value);
}

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

/// The first percent sign in [p, end), or `end`.
inline char const* findPercent(char const* p, char const* end) noexcept {
  for (; kIsLittleEndian && end - p >= kWord; p += kWord) {
    std::uint64_t const marks = zeroBytes(loadWord(p) ^ wordOf('%'));
    if (marks != 0) return p + firstMark(marks);
  }
  while (p != end && *p != '%') ++p;
  return p;
}

struct Conversion {
  static constexpr int kNoNumber = -10000;

  int number;       // or kNoNumber
  char const* run;  // its first byte
  char const* letter;
};

/// Hands the pieces of [p, end) on in their order: sink.text(begin, end) for a piece of text, with
/// `%%` reduced, and sink.conversion(c). A percent sign or a conversion that the end cuts off
/// leaves nothing behind.
///
///     template   = { text | "%%" | conversion }
///     conversion = "%" [ digits "$" ] run letter
///
/// @pre `*end` can be read, and is no character of a conversion.
template <class Sink>
void scanTemplate(char const* p, char const* end, Sink& sink) {
  char const* pending = p;
  for (;;) {
    p = findPercent(p, end);
    if (p == end) break;
    sink.text(pending, p);
    pending = ++p;
    if (p == end) return;
    if (*p == '%') {
      ++p;  // and the second of the pair stays pending
      continue;
    }
    Conversion conversion = {Conversion::kNoNumber, p, nullptr};
    int const number = readNumber(p);
    if (*p == '$') {
      if (p != conversion.run) conversion.number = number;
      conversion.run = ++p;
    }
    while (isRunCharacter(*p)) ++p;
    if (p == end) return;
    pending = p;  // a character that makes it no conversion stays, and is not looked at again
    if (isConversionLetter(*p)) {
      conversion.letter = p;
      sink.conversion(conversion);
      ++pending;
    }
    ++p;
  }
  sink.text(pending, end);
}

/// The counting pass: an upper bound of the conversions in [p, end).
inline std::size_t countPercents(char const* p, char const* end) noexcept {
  std::size_t count = 0;
  while ((p = findPercent(p, end)), end - p >= 2) {
    bool const isPair = p[1] == '%';
    count += isPair ? 0 : 1;
    p += isPair ? 2 : 1;
  }
  return count;
}

}  // namespace atr

#endif  // ATR_FORMAT_TEMPLATE_SCAN_H
