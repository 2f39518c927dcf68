// Fields are bounded before a number is printed, so that every text fits its room.
#include "atr/format/number_text.h"

#include <cstdio>
#include <cstring>

namespace atr {

namespace {

constexpr std::size_t kDigitRoom = 24;  // 2^64 in octal has 22 digits

// A base that the compiler knows needs no division.
template <unsigned base>
char* digitsBefore(char* end, unsigned long long value, char const* digitNames) noexcept {
  for (; value != 0; value /= base) *--end = digitNames[value % base];
  return end;
}

// The first digit; the last one stands before `end`. A zero has none.
char* digitsBefore(char* end, char letter, unsigned long long value) noexcept {
  switch (letter) {
    case 'o':
      return digitsBefore<8>(end, value, "01234567");
    case 'x':
      return digitsBefore<16>(end, value, "0123456789abcdef");
    case 'X':
      return digitsBefore<16>(end, value, "0123456789ABCDEF");
    default:
      return digitsBefore<10>(end, value, "0123456789");
  }
}

char* fill(char* out, char byte, int count) noexcept {
  if (count <= 0) return out;
  std::memset(out, byte, static_cast<std::size_t>(count));
  return out + count;
}

}  // namespace

void NumberText::printInteger(ConversionLayout const& layout, char letter, bool isNegative,
                              unsigned long long magnitude) noexcept {
  char room[kDigitRoom];
  char* const end = room + kDigitRoom;
  char const* const digits = digitsBefore(end, letter, magnitude);
  auto const digitCount = static_cast<int>(end - digits);
  int const sign = isNegative ? 1 : 0;
  bool const isZeroFilled = layout.isZeroPadded && !layout.isLeft && layout.precision < 0;
  int const leastDigits =
      std::max(isZeroFilled ? layout.width - sign : layout.precision, layout.precision < 0 ? 1 : 0);
  int const zeros = std::max(leastDigits - digitCount, 0);
  int const blanks = layout.width - sign - zeros - digitCount;
  char* out = fill(text_, ' ', layout.isLeft ? 0 : blanks);
  out = fill(out, '-', sign);
  out = fill(out, '0', zeros);
  std::memcpy(out, digits, static_cast<std::size_t>(digitCount));
  out = fill(out + digitCount, ' ', layout.isLeft ? blanks : 0);
  *out = '\0';
}

void NumberText::printCharacter(ConversionLayout const& layout, char byte) noexcept {
  char* out = fill(text_, ' ', layout.isLeft ? 0 : layout.width - 1);
  *out++ = byte;
  out = fill(out, ' ', layout.isLeft ? layout.width - 1 : 0);
  *out = '\0';
}

// A negative width stands for the flag `-`, and a negative precision for none.
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
}

}  // namespace atr
