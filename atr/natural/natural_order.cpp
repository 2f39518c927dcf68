// The order of two texts is decided where they first differ: as numbers if digits meet there, else
// by that byte.
#include "atr/natural/natural_order.h"

#include <cstddef>
#include <cstdlib>

#include "atr/natural/natural_order_default.h"
#include "atr/natural/natural_order_runs.h"

namespace {

bool isDecimalDigit(char c) noexcept { return c >= '0' && c <= '9'; }

int order(signed char a, signed char b) noexcept { return (a > b) - (a < b); }

int order(char a, char b) noexcept {
  return order(static_cast<signed char>(a), static_cast<signed char>(b));
}

int naturalOrderFlag = 0;

}  // namespace

// The longer number is the greater one, however the digits before its end compare: so the first
// difference is only remembered, and counts if the numbers end together.
int atr_compareRunRight(char const* a, char const* b) noexcept {
  int bias = 0;
  for (;; ++a, ++b) {
    if (!isDecimalDigit(*a) && !isDecimalDigit(*b)) return bias;
    if (!isDecimalDigit(*a)) return -1;
    if (!isDecimalDigit(*b)) return 1;
    if (bias == 0) bias = order(*a, *b);
  }
}

int atr_compareRunLeft(char const* a, char const* b) noexcept {
  for (;; ++a, ++b) {
    if (!isDecimalDigit(*a) && !isDecimalDigit(*b)) return 0;
    if (!isDecimalDigit(*a)) return -1;
    if (!isDecimalDigit(*b)) return 1;
    if (*a != *b) return order(*a, *b);
  }
}

// Everything before the first difference is equal, numbers included, so only the digits around the
// difference can compare as numbers. They begin at `digits`, before the difference if the two
// numbers have leading digits in common.
int strnatcmp(char const* a, char const* b) {
  std::size_t at = 0;
  std::size_t digits = 0;
  for (; a[at] == b[at]; ++at) {
    if (a[at] == '\0') return 0;
    digits = isDecimalDigit(a[at]) ? digits : at + 1;
  }
  if (isDecimalDigit(a[digits]) && isDecimalDigit(b[digits])) {
    bool const isFraction = a[digits] == '0' || b[digits] == '0';
    int const numbers =
        isFraction ? atr_compareRunLeft(a + at, b + at) : atr_compareRunRight(a + at, b + at);
    if (numbers != 0) return numbers;
  }
  return order(a[at], b[at]);
}

void atr_setNaturalOrder(int value) { naturalOrderFlag = value; }

int atr_getNaturalOrder() { return naturalOrderFlag; }

void atr_setNaturalOrderDefault() noexcept {
  atr_setNaturalOrder(std::getenv("ZLT_USE_NATURAL_ORDER_SORT") != nullptr ? 0 : 1);
}
