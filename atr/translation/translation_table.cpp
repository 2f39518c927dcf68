// The table's order, its search and its release.
#include "atr/translation/translation_table.h"

#include <algorithm>
#include <cstring>

#include "atr/frame/compiler.h"
#include "atr/frame/memory.h"
#include "atr/translation/key_sort.h"
#include "atr/translation/translation.h"

TranslationTable atr_trTable;

int atr_trCompareKeys(void const* a, void const* b) noexcept {
  int const order = std::strcmp(static_cast<TranslationEntry const*>(a)->key,
                                static_cast<TranslationEntry const*>(b)->key);
  return (order > 0) - (order < 0);
}

// The index is filled first, in file order, because of equal keys it keeps the one inserted last.
void TranslationTable::sort() noexcept {
  index.build(entries, count);
  bool const isLarge = count >= atr::kFewEntries;
  if (!isLarge || !atr::sortByPrefixes(entries, count)) atr::sortInPlace(entries, count);
}

// A binary search that goes on behind an entry it has found, to the last of those with this key.
// It is not inlined, so that a lookup by the index saves no registers for it.
ATR_NOINLINE static std::string_view findByHalves(TranslationTable const& table,
                                                  char const* key) noexcept {
  char const* text = nullptr;
  TranslationEntry const* first = table.entries;
  for (int rest = std::max(table.count, 0); rest > 0;) {
    TranslationEntry const* const middle = first + rest / 2;
    int const order = std::strcmp(key, middle->key);
    if (order == 0) text = middle->text;
    if (order >= 0) {
      first = middle + 1;
      rest -= rest / 2 + 1;
    } else {
      rest /= 2;
    }
  }
  return text != nullptr ? std::string_view(text) : std::string_view();
}

std::string_view TranslationTable::find(std::string_view key) const noexcept {
  return index.isEmpty() ? findByHalves(*this, key.data()) : index.find(key);
}

void TranslationTable::release() noexcept {
  index.clear();
  for (int i = 0; i < count; ++i) {
    mem_Free(entries[i].key);
    mem_Free(entries[i].text);
  }
  mem_Free(entries);
  *this = {};
}

void atr_trReleaseDB() { atr_trTable.release(); }
