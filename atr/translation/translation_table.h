// The process's one table of message keys and their translations.
#ifndef ATR_TRANSLATION_TRANSLATION_TABLE_H
#define ATR_TRANSLATION_TRANSLATION_TABLE_H

#include <string_view>

/// A pair. Both texts are blocks of mem_Malloc.
struct TranslationEntry {
  char* key;   ///< as in the dictionary, escapes decoded; neither tested nor converted
  char* text;  ///< in the encoding of the locale at the build
};

/// count  entries            state
/// 0      null               not built
/// > 0    sorted by key      built
/// -1     null or an array   tried and empty
struct TranslationTable {
  TranslationEntry* entries;  ///< from mem_Calloc; may have more slots than `count`
  int count;
};

extern TranslationTable atr_trTable;

/// The order of two TranslationEntry by their keys, as unsigned bytes: -1, 0 or 1.
int atr_trCompareKeys(void const* a, void const* b) noexcept;

/// Sorts the entries and indexes them; those with one key stay in their order. Once sorted they may
/// not change until the release.
void atr_trSort() noexcept;

/// The text of `key`, which a NUL ends; good until the release, or a view of null. Of several
/// entries with one key the last in the file counts.
std::string_view atr_trFind(std::string_view key) noexcept;

#endif  // ATR_TRANSLATION_TRANSLATION_TABLE_H
