// Width and precision have been bounded before they come here, so every number fits the buffer.
#include "atr/format/number_text.h"

#include <charconv>
#include <cstdio>
#include <cstring>

#include "atr/frame/words.h"
#include "atr/strings/exponent.h"

namespace atr {

namespace {

constexpr std::size_t kDigitRoom = 24;  // 2^64 in octal has 22 digits

// Writes the digits of a number and returns where they end. 0 has no digits: the precision decides
// how many zeros are shown.
char* writeDigits(char (&out)[kDigitRoom], char letter, unsigned long long value) noexcept {
  if (value == 0) return out;
  int const base = letter == 'o' ? 8 : letter == 'x' || letter == 'X' ? 16 : 10;
  char* const end = std::to_chars(out, out + kDigitRoom, value, base).ptr;
  if (letter == 'X') std::transform(out, end, out, [](char c) { return c >= 'a' ? c & ~0x20 : c; });
  return end;
}

char* fill(char* out, char byte, int count) noexcept {
  if (count <= 0) return out;
  std::memset(out, byte, static_cast<std::size_t>(count));
  return out + count;
}

}  // namespace

void NumberText::printInteger(ConversionLayout const& layout, char letter, bool isNegative,
                              unsigned long long magnitude) noexcept {
  char digits[kDigitRoom];
  auto const digitCount = static_cast<int>(writeDigits(digits, letter, magnitude) - digits);
  int const sign = isNegative ? 1 : 0;
  bool const isZeroFilled = layout.isZeroPadded && !layout.isLeft && layout.precision < 0;
  int const leastDigits =
      std::max(isZeroFilled ? layout.width - sign : layout.precision, layout.precision < 0 ? 1 : 0);
  int const zeros = std::max(leastDigits - digitCount, 0);
  int const blanks = layout.width - sign - zeros - digitCount;
  char* out = fill(text_, ' ', layout.isLeft ? 0 : blanks);
  out = fill(out, '-', sign);
  out = fill(out, '0', zeros);
  copyBytes(out, digits, static_cast<std::size_t>(digitCount));
  out = fill(out + digitCount, ' ', layout.isLeft ? blanks : 0);
  *out = '\0';
  bytes_ = static_cast<std::size_t>(out - text_);
}

void NumberText::printCharacter(ConversionLayout const& layout, char byte) noexcept {
  char* out = fill(text_, ' ', layout.isLeft ? 0 : layout.width - 1);
  *out++ = byte;
  out = fill(out, ' ', layout.isLeft ? layout.width - 1 : 0);
  *out = '\0';
  bytes_ = std::strlen(text_);
}

void NumberText::fixExponent() noexcept {
  bytes_ -= static_cast<std::size_t>(shortenExponent(text_));
}

// snprintf takes a negative width for the flag `-` and a negative precision for none. Each format
// is a literal, so that the compiler checks it and no template can change it.
void NumberText::printDouble(ConversionLayout const& layout, char letter, double value) noexcept {
  bool const zeros = layout.isZeroPadded;
  int const width = layout.isLeft ? -layout.width : layout.width;
  int const precision = layout.precision;
  switch (letter) {
    case 'E':
      zeros ? std::snprintf(text_, kRoom, "%0*.*E", width, precision, value)
            : std::snprintf(text_, kRoom, "%*.*E", width, precision, value);
      break;
    case 'e':
      zeros ? std::snprintf(text_, kRoom, "%0*.*e", width, precision, value)
            : std::snprintf(text_, kRoom, "%*.*e", width, precision, value);
      break;
    case 'f':
      zeros ? std::snprintf(text_, kRoom, "%0*.*f", width, precision, value)
            : std::snprintf(text_, kRoom, "%*.*f", width, precision, value);
      break;
    default:
      zeros ? std::snprintf(text_, kRoom, "%0*.*g", width, precision, value)
            : std::snprintf(text_, kRoom, "%*.*g", width, precision, value);
      break;
  }
  bytes_ = std::strlen(text_);
}

}  // namespace atr
