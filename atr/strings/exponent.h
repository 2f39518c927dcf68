// The one repair of printed numbers: a runtime library may print three exponent digits where two
// do.
#ifndef ATR_STRINGS_EXPONENT_H
#define ATR_STRINGS_EXPONENT_H

#include <cstring>

namespace atr {

/// Takes the 0 out of an exponent such as e+005 that ends `text`; the first `e` counts, an `E` does
/// not. Three digits are required, since two digits and a blank are an exponent that is
/// left-justified in its field.
/// @return the bytes removed, 0 or 1.
inline int shortenExponent(char* text) noexcept {
  auto const isDigit = [](char c) noexcept { return c >= '0' && c <= '9'; };
  char* const exponent = std::strchr(text, 'e');
  if (exponent == nullptr || exponent[1] == '\0') return 0;
  char* const digits = exponent + 2;
  if (digits[0] != '0' || !isDigit(digits[1]) || !isDigit(digits[2]) || digits[3] != '\0') return 0;
  std::memmove(digits, digits + 1, 3);
  return 1;
}

}  // namespace atr

#endif  // ATR_STRINGS_EXPONENT_H
