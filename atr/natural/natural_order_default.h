// The value of the natural-order flag at a start of the library.
#ifndef ATR_NATURAL_NATURAL_ORDER_DEFAULT_H
#define ATR_NATURAL_NATURAL_ORDER_DEFAULT_H

/// Sets the flag to 0 if ZLT_USE_NATURAL_ORDER_SORT is in the environment, else to 1.
void atr_setNaturalOrderDefault() noexcept;

#endif  // ATR_NATURAL_NATURAL_ORDER_DEFAULT_H
