// The comparison of numbers within texts: the private half of natural order.
#ifndef ATR_NATURAL_NATURAL_ORDER_RUNS_H
#define ATR_NATURAL_NATURAL_ORDER_RUNS_H

/// Two digit runs of which neither begins with 0: the longer is the greater, then the first digit
/// that differs decides.
int atr_compareRunRight(char const* a, char const* b) noexcept;

/// Two digit runs of which at least one begins with 0: the first digit that differs decides, and a
/// run that ends first is the smaller.
int atr_compareRunLeft(char const* a, char const* b) noexcept;

#endif  // ATR_NATURAL_NATURAL_ORDER_RUNS_H
