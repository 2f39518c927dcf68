// Start and stop of the library. Both nest by count, and both come from one thread at a time.
#ifndef ATR_FRAME_LIFECYCLE_H
#define ATR_FRAME_LIFECYCLE_H

#include "atr/frame/export.h"

/// Starts the library if no earlier start is open: the memory service, the string module, the
/// natural-order default. Only such a real start reads the environment and adds 1 to `count`.
/// Strings and lookups work without it; translation is switched on by atr_tr_enable.
/// @param count a counter of the caller's; the library keeps no reference to it.
ATR_API void atr_initialize(int& count);

/// Ends one atr_initialize. The call that ends the last one stops the library: it releases the
/// translation table, reports the string summary if that is on, and subtracts 1 from `count`.
/// Strings may outlive it, and the library can be started again.
/// @pre an atr_initialize is open; a call too many is not detected.
ATR_API void atr_finalize(int& count);

#endif  // ATR_FRAME_LIFECYCLE_H
