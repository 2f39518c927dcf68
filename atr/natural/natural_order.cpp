// Two digit runs that are equal are compared once: behind the first index of such a run there is
// nothing left to find in it, so that equal texts cost linear time.
#include "atr/natural/natural_order.h"

#include <cstdlib>

#include "atr/natural/natural_order_runs.h"

namespace {

bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }

int order(signed char a, signed char b) noexcept { return (a > b) - (a < b); }

int order(char a, char b) noexcept {
  return order(static_cast<signed char>(a), static_cast<signed char>(b));
}

int naturalOrderFlag = 0;

}  // namespace

int atr_compareRunRight(char const* a, char const* b) noexcept {
  int bias = 0;
  for (;; ++a, ++b) {
    if (!isDigit(*a) && !isDigit(*b)) return bias;
    if (!isDigit(*a)) return -1;
    if (!isDigit(*b)) return 1;
    if (bias == 0) bias = order(*a, *b);
  }
}

int atr_compareRunLeft(char const* a, char const* b) noexcept {
  for (;; ++a, ++b) {
    if (!isDigit(*a) && !isDigit(*b)) return 0;
    if (!isDigit(*a)) return -1;
    if (!isDigit(*b)) return 1;
    if (*a != *b) return order(*a, *b);
  }
}

int strnatcmp(char const* a, char const* b) {
  bool isInRun = false;  // of digits that are equal in both texts
  for (;; ++a, ++b) {
    bool const areDigits = isDigit(*a) && isDigit(*b);
    if (areDigits && !isInRun) {
      bool const isFraction = *a == '0' || *b == '0';
      int const runs = isFraction ? atr_compareRunLeft(a, b) : atr_compareRunRight(a, b);
      if (runs != 0) return runs;
    }
    isInRun = areDigits;
    if (*a != *b) return order(*a, *b);
    if (*a == '\0') return 0;
  }
}

void atr_setNaturalOrder(int value) { naturalOrderFlag = value; }

int atr_getNaturalOrder() { return naturalOrderFlag; }

void atr_setNaturalOrderDefault() noexcept {
  atr_setNaturalOrder(std::getenv("ZLT_USE_NATURAL_ORDER_SORT") != nullptr ? 0 : 1);
}
