// The sort of a large table. Comparing two keys takes two walks through memory; so their next eight
// bytes are taken along, and only keys that agree in those are looked at again.
#ifndef ATR_TRANSLATION_KEY_SORT_H
#define ATR_TRANSLATION_KEY_SORT_H

#include "atr/translation/translation_table.h"

namespace atr {

/// Fewer entries than this are sorted sooner by comparing them; see the benchmark "load and
/// release".
constexpr int kFewEntries = 64;

/// Sorts [first, first + count) by key as unsigned bytes; equal keys stay in their order.
/// @return false, with nothing done, if there is no memory to work in.
bool sortByPrefixes(TranslationEntry* first, int count) noexcept;

}  // namespace atr

#endif  // ATR_TRANSLATION_KEY_SORT_H
