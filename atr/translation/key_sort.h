// The sorts of the table: one that needs no memory, and one for large tables. Comparing two keys
// takes two walks through memory; so the second takes their next eight bytes along, and only looks
// again at keys that agree in those.
#ifndef ATR_TRANSLATION_KEY_SORT_H
#define ATR_TRANSLATION_KEY_SORT_H

#include "atr/translation/translation_entry.h"

namespace atr {

/// Fewer entries than this are sorted sooner by comparing them; see the benchmark "load and
/// release".
constexpr int kFewEntries = 64;

/// Sorts [first, first + count) by key as unsigned bytes; equal keys stay in their order. Works
/// where the entries stand. O(count log^2 count) comparisons.
void sortInPlace(TranslationEntry* first, int count) noexcept;

/// The same, many times as fast for a large table.
/// @return false, with nothing done, if there is no memory to work in.
bool sortByPrefixes(TranslationEntry* first, int count) noexcept;

}  // namespace atr

#endif  // ATR_TRANSLATION_KEY_SORT_H
