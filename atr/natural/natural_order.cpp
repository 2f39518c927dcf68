// Two texts are compared where they first differ, and as numbers if that is in a run of digits.
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

// Up to the first difference the texts are one text, runs of digits included, and its last run is
// the only one that can go on in them differently.
int strnatcmp(char const* a, char const* b) {
  std::size_t at = 0;
  std::size_t run = 0;
  for (; a[at] == b[at]; ++at) {
    if (a[at] == '\0') return 0;
    run = isDecimalDigit(a[at]) ? run : at + 1;
  }
  if (isDecimalDigit(a[run]) && isDecimalDigit(b[run])) {
    bool const isFraction = a[run] == '0' || b[run] == '0';
    int const runs =
        isFraction ? atr_compareRunLeft(a + at, b + at) : atr_compareRunRight(a + at, b + at);
    if (runs != 0) return runs;
  }
  return order(a[at], b[at]);
}

void atr_setNaturalOrder(int value) { naturalOrderFlag = value; }

int atr_getNaturalOrder() { return naturalOrderFlag; }

void atr_setNaturalOrderDefault() noexcept {
  atr_setNaturalOrder(std::getenv("ZLT_USE_NATURAL_ORDER_SORT") != nullptr ? 0 : 1);
}
