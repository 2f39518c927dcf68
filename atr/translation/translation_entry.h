// One pair of the table: a message key and its translation.
#ifndef ATR_TRANSLATION_TRANSLATION_ENTRY_H
#define ATR_TRANSLATION_TRANSLATION_ENTRY_H

/// Both texts are NUL-terminated blocks of mem_Malloc, which belong to the table.
struct TranslationEntry {
  char* key;   ///< as in the dictionary, escapes decoded; neither validated nor converted
  char* text;  ///< in the encoding of the locale at the build
};

/// The order of two TranslationEntry by their keys, as unsigned bytes: -1, 0 or 1.
int atr_trCompareKeys(void const* a, void const* b) noexcept;

#endif  // ATR_TRANSLATION_TRANSLATION_ENTRY_H
