// Flags, width and precision of a conversion, with an upper bound.
#ifndef ATR_FORMAT_CONVERSION_LAYOUT_H
#define ATR_FORMAT_CONVERSION_LAYOUT_H

#include <algorithm>
#include <cstring>

#include "atr/format/template_scan.h"

namespace atr {

/// The largest width and precision of a number. No message needs more, and a dictionary could ask
/// for millions, at which some C runtimes crash.
constexpr int kMaxField = 1023;

/// How a number is laid out in its field.
struct ConversionLayout {
  bool isLeft = false;
  bool isZeroPadded = false;
  int width = 0;
  int precision = -1;  // negative: none
};

/// True if `format` is only `%` and a letter.
inline bool isPlain(char const* format) noexcept { return format[2] == '\0'; }

/// The letter that ends `format`. @pre there is one.
inline char letterOf(char const* format) noexcept {
  return isPlain(format) ? format[1] : format[std::strlen(format) - 1];
}

/// Reads `%` { "-" | "0" } [ width ] [ "." [ precision ] ]. A template may have an `l` anywhere; it
/// is skipped, because the size of a value is known from its type. Whatever else stands between the
/// precision and the letter is ignored.
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
