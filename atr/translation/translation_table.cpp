// The table: its order, its search, its release.
#include "atr/translation/translation_table.h"

#include <algorithm>
#include <cstring>

#include "atr/frame/compiler.h"
#include "atr/frame/memory.h"
#include "atr/translation/key_index.h"
#include "atr/translation/key_sort.h"
#include "atr/translation/translation.h"

using namespace atr;

TranslationTable atr_trTable = {nullptr, 0};

static KeyIndex keyIndex;

int atr_trCompareKeys(void const* a, void const* b) noexcept {
  int const order = std::strcmp(static_cast<TranslationEntry const*>(a)->key,
                                static_cast<TranslationEntry const*>(b)->key);
  return (order > 0) - (order < 0);
}

void atr_trSort() noexcept {
  keyIndex.build(atr_trTable);
  bool const isLarge = atr_trTable.count >= kFewEntries;
  if (!isLarge || !sortByPrefixes(atr_trTable.entries, atr_trTable.count)) {
    sortInPlace(atr_trTable.entries, atr_trTable.count);
  }
}

// Apart, so that the way of every lookup saves no registers for it.
ATR_NOINLINE static std::string_view findByHalves(char const* key) noexcept {
  char const* text = nullptr;
  TranslationEntry const* first = atr_trTable.entries;
  for (int rest = std::max(atr_trTable.count, 0); rest > 0;) {
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

std::string_view atr_trFind(std::string_view key) noexcept {
  return keyIndex.isEmpty() ? findByHalves(key.data()) : keyIndex.find(key);
}

void atr_trReleaseDB() {
  keyIndex.clear();
  for (int i = 0; i < atr_trTable.count; ++i) {
    mem_Free(atr_trTable.entries[i].key);
    mem_Free(atr_trTable.entries[i].text);
  }
  mem_Free(atr_trTable.entries);
  atr_trTable = {nullptr, 0};
}
