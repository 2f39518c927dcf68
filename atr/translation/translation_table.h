// The process's one table of message keys and their translations.
#ifndef ATR_TRANSLATION_TRANSLATION_TABLE_H
#define ATR_TRANSLATION_TRANSLATION_TABLE_H

#include <string_view>

#include "atr/translation/key_index.h"
#include "atr/translation/translation_entry.h"

/// Owns its entries and the index over them. It has no destructor: other modules may still look
/// messages up while the process exits, and the last atr_finalize releases it.
///
/// count  entries            state
/// 0      null               not built
/// > 0    sorted by key      built
/// -1     null or an array   tried and empty
struct TranslationTable {
  /// Sorts the entries by key and indexes them; those with one key stay in their order. From then
  /// on they may not change until the release.
  void sort() noexcept;

  /// The text of `key`, which a NUL must end, or a view of null; good until the release. Of several
  /// entries with one key the last in the file counts. O(bytes of the key); without an index that
  /// times log(count).
  std::string_view find(std::string_view key) const noexcept;

  /// Gives everything back: the table is not built then.
  void release() noexcept;

  TranslationEntry* entries = nullptr;  ///< from mem_Calloc; may have more slots than `count`
  int count = 0;
  atr::KeyIndex index = {};  ///< empty until sort(), and where there was no memory for it
};

extern TranslationTable atr_trTable;

#endif  // ATR_TRANSLATION_TRANSLATION_TABLE_H
