// Rounds the shortest round-trip decimal instead of the exact digits, in half the time.
//
// If it has more digits than are wanted, both round to the same text: a rounding midpoint between
// the two would be no longer and nearer to the double, so it would be the shortest decimal. If the
// shortest decimal *is* a midpoint, the exact digits decide. If it has no more digits than are
// wanted, it is itself what the exact digits round to, because a double tells all decimals of 15
// digits apart.
#include "atr/strings/general_form.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "atr/frame/words.h"

namespace atr {

namespace {

constexpr int kRoom = 24;  // a sign, 17 digits, a point and an exponent

// digit . digits x 10^exponent. The count is unsigned because it becomes a size: link-time
// optimisation warns of signed ones.
struct Decimal {
  char digits[kRoom];
  unsigned int count;
  int exponent;
};

char* put(char* out, char const* text, unsigned int bytes) noexcept {
  copyBytes(out, text, bytes);
  return out + bytes;
}

// Parses what to_chars writes: digit [ "." digits ] "e" sign digits.
Decimal shortestOf(double magnitude) noexcept {
  Decimal decimal{};
  char text[kRoom];
  char* const end = std::to_chars(text, text + kRoom, magnitude, std::chars_format::scientific).ptr;
  char* const e = end - (end[-4] == 'e' ? 4 : 5);
  decimal.digits[0] = text[0];
  decimal.count = std::max(static_cast<unsigned int>(e - text) - 1, 1U);
  put(decimal.digits + 1, text + 2, decimal.count - 1);
  for (char const* p = e + 2; p != end; ++p) decimal.exponent = decimal.exponent * 10 + (*p - '0');
  if (e[1] == '-') decimal.exponent = -decimal.exponent;
  return decimal;
}

void roundUp(Decimal& decimal) noexcept {
  while (decimal.count > 0 && decimal.digits[decimal.count - 1] == '9') --decimal.count;
  if (decimal.count > 0) {
    ++decimal.digits[decimal.count - 1];
  } else {
    decimal.digits[decimal.count++] = '1';
    ++decimal.exponent;
  }
}

// Rounds and removes zeros from the end; false for a midpoint, which needs the exact digits.
bool roundTo(unsigned int precision, Decimal& decimal) noexcept {
  if (decimal.count <= precision) return true;
  char const next = decimal.digits[precision];
  if (next == '5' && decimal.count == precision + 1) return false;
  decimal.count = precision;
  if (next >= '5') roundUp(decimal);
  while (decimal.digits[decimal.count - 1] == '0') --decimal.count;
  return true;
}

char* putExponent(char* out, int exponent) noexcept {
  int const magnitude = std::abs(exponent);
  out = put(out, exponent < 0 ? "e-" : "e+", 2);
  if (magnitude >= 100) *out++ = static_cast<char>('0' + magnitude / 100);
  *out++ = static_cast<char>('0' + magnitude / 10 % 10);
  *out++ = static_cast<char>('0' + magnitude % 10);
  return out;
}

char* layOut(char* out, Decimal const& decimal, int precision) noexcept {
  bool const isScientific = decimal.exponent < -4 || decimal.exponent >= precision;
  int const before = isScientific ? 1 : decimal.exponent + 1;  // digits in front of the point
  if (before <= 0) {
    out = put(out, "0.000", static_cast<unsigned int>(2 - before));
    return put(out, decimal.digits, decimal.count);
  }
  unsigned int const given = std::min(static_cast<unsigned int>(before), decimal.count);
  out = put(out, decimal.digits, given);
  out = std::fill_n(out, static_cast<unsigned int>(before) - given, '0');
  if (given < decimal.count) {
    *out++ = '.';
    out = put(out, decimal.digits + given, decimal.count - given);
  }
  return isScientific ? putExponent(out, decimal.exponent) : out;
}

}  // namespace

// A subnormal double has fewer than 15 digits of its own, so the reasoning above does not hold.
char* printGeneral(char* out, double value, int precision) noexcept {
  if (!std::isnormal(value)) return printGeneralExactly(out, value, precision);
  Decimal decimal = shortestOf(std::abs(value));
  if (!roundTo(static_cast<unsigned int>(precision), decimal))
    return printGeneralExactly(out, value, precision);
  if (std::signbit(value)) *out++ = '-';
  return layOut(out, decimal, precision);
}

char* printGeneralExactly(char* out, double value, int precision) noexcept {
  return std::to_chars(out, out + kRoom, value, std::chars_format::general, precision).ptr;
}

}  // namespace atr
