// Natural order: file2 before file10. Callable from any thread but for the flag.
#ifndef ATR_NATURAL_NATURAL_ORDER_H
#define ATR_NATURAL_NATURAL_ORDER_H

#include "atr/frame/export.h"

/// The order of two texts: -1, 0 or 1. Bytes compare as signed, so that those from 0x80 up sort
/// before the end of a text. Two runs of digits at one index compare as numbers, the longer run
/// being the greater; if either begins with 0, both compare as fractions, digit by digit. The order
/// is total, so that it serves any sort. O(length of the shorter); allocates nothing.
/// @pre neither text is null.
ATR_API int strnatcmp(char const* a, char const* b);

/// A flag for clients that offer natural sorting as a choice; the library itself does not look at
/// it. Each real start sets it: to 0 if ZLT_USE_NATURAL_ORDER_SORT is in the environment, whatever
/// its value, else to 1.
ATR_API void atr_setNaturalOrder(int value);

/// The value last set, 0 before the first start.
ATR_API int atr_getNaturalOrder();

#endif  // ATR_NATURAL_NATURAL_ORDER_H
