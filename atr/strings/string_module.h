// Start and stop of the string module: the library's own pools and the summary.
#ifndef ATR_STRINGS_STRING_MODULE_H
#define ATR_STRINGS_STRING_MODULE_H

class atr_Allocator;

/// The library's own pools, for blocks of the size of a header and of inline representations; null
/// before the first start, or if there was no memory. Nothing allocates from them today.
extern atr_Allocator* atr_repPool;
extern atr_Allocator* atr_bodyPool;

void atr_stringInitialize();
void atr_stringFinalize();

#endif  // ATR_STRINGS_STRING_MODULE_H
