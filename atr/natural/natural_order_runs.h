// Compares the digits of two texts as numbers: the private half of natural order.
#ifndef ATR_NATURAL_NATURAL_ORDER_RUNS_H
#define ATR_NATURAL_NATURAL_ORDER_RUNS_H

/// Compares two numbers of which neither begins with 0: the one with more digits is the greater; of
/// the same length, the first digit that differs decides.
int atr_compareRunRight(char const* a, char const* b) noexcept;

/// Compares two numbers as fractions, for the case that at least one begins with 0: the first digit
/// that differs decides, and the number that ends first is the smaller.
int atr_compareRunLeft(char const* a, char const* b) noexcept;

#endif  // ATR_NATURAL_NATURAL_ORDER_RUNS_H
