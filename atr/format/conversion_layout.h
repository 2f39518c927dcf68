// Flags, width and precision of a conversion specification, bounded.
#ifndef ATR_FORMAT_CONVERSION_LAYOUT_H
#define ATR_FORMAT_CONVERSION_LAYOUT_H

#include <algorithm>
#include <cstring>

#include "atr/format/template_scan.h"

namespace atr {

/// More than a message has use for; a dictionary can ask for millions, which some runtimes do not
/// survive.
constexpr int kMaxField = 1023;

/// How a number stands in its field.
struct ConversionLayout {
  bool isLeft = false;
  bool isZeroPadded = false;
  int width = 0;
  int precision = -1;  // none
};

/// True for a conversion specification of `%` and a letter alone.
inline bool isPlain(char const* format) noexcept { return format[2] == '\0'; }

/// The letter of a conversion specification, which has one.
inline char letterOf(char const* format) noexcept {
  return isPlain(format) ? format[1] : format[std::strlen(format) - 1];
}

/// Reads `%` { "-" | "0" } [ width ] [ "." [ precision ] ]. A template may have put `l` anywhere;
/// an argument's size does not come from there, so they are passed over. What else stands between
/// the precision and the letter does not count.
inline ConversionLayout parseLayout(char const* format) noexcept {
  if (isPlain(format)) return {};
  char const* p = format + 1;
  auto const peek = [&p]() noexcept {
    while (*p == 'l') ++p;
    return *p;
  };
  auto const field = [&]() noexcept {
    int value = 0;
    for (; isDigit(peek()); ++p) value = std::min(value * 10 + (*p - '0'), kMaxField);
    return value;
  };
  ConversionLayout layout;
  for (; peek() == '-' || peek() == '0'; ++p) {
    (*p == '-' ? layout.isLeft : layout.isZeroPadded) = true;
  }
  layout.width = field();
  if (peek() == '.') {
    ++p;
    layout.precision = field();
  }
  return layout;
}

}  // namespace atr

#endif  // ATR_FORMAT_CONVERSION_LAYOUT_H
