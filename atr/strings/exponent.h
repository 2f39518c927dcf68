// A repair of printed numbers: some C runtimes print three digits of an exponent where two are
// enough.
#ifndef ATR_STRINGS_EXPONENT_H
#define ATR_STRINGS_EXPONENT_H

#include <cstring>

namespace atr {

/// Removes the 0 from an exponent such as e+005 at the end of `text`. Only the first `e` is looked
/// at, and no `E`. All three characters must be digits: in a left-justified field the third one may
/// be a blank behind an exponent of two digits.
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
