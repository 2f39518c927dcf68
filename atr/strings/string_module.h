// The string module's share in start and stop: the library's own pools and the summary.
#ifndef ATR_STRINGS_STRING_MODULE_H
#define ATR_STRINGS_STRING_MODULE_H

class atr_Allocator;

/// The library's own pools, of the sizes of a bare header and of the inline representations; null
/// before the first start or if there was no memory. Nothing draws from them.
extern atr_Allocator* atr_repPool;
extern atr_Allocator* atr_bodyPool;

void atr_stringInitialize();
void atr_stringFinalize();

#endif  // ATR_STRINGS_STRING_MODULE_H
