// Natural order: file2 before file10. strnatcmp may be called from any thread; the flag belongs to
// one thread at a time.
#ifndef ATR_NATURAL_NATURAL_ORDER_H
#define ATR_NATURAL_NATURAL_ORDER_H

#include "atr/frame/export.h"

/// The natural order of two texts: -1, 0 or 1. Numbers that begin at the same index compare by
/// their value. If one of them begins with 0, both compare as fractions, digit by digit. Other
/// bytes compare as signed values, so bytes from 0x80 up sort before the end of a text. The order
/// is total, so it suits every sort. O(length of the shorter text); allocates nothing.
/// @pre neither text is null.
ATR_API int strnatcmp(char const* a, char const* b);

/// A flag for clients that offer natural sorting as a choice; the library itself does not use it.
/// Each real start of the library sets it: to 0 if ZLT_USE_NATURAL_ORDER_SORT is in the
/// environment, whatever its value, otherwise to 1.
ATR_API void atr_setNaturalOrder(int value);

/// The value that was last set; 0 before the first start.
ATR_API int atr_getNaturalOrder();

#endif  // ATR_NATURAL_NATURAL_ORDER_H
