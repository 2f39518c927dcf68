// The two sorts of the table: one that needs no memory, and a faster one for large tables. Most of
// the time of a sort goes into fetching keys that lie anywhere in memory; the faster sort keeps the
// next eight bytes of each key beside its entry, and fetches a key again only if these are equal.
#ifndef ATR_TRANSLATION_KEY_SORT_H
#define ATR_TRANSLATION_KEY_SORT_H

#include "atr/translation/translation_entry.h"

namespace atr {

/// A table with fewer entries is sorted faster by comparisons; see the benchmark "load, entries".
constexpr int kFewEntries = 64;

/// Sorts [first, first + count) in place by key, as unsigned bytes; equal keys keep their order.
/// Needs no memory. O(count log^2 count) comparisons.
void sortInPlace(TranslationEntry* first, int count) noexcept;

/// The same order, several times as fast for a large table. O(bytes of the keys that tell them
/// apart); takes 48 bytes an entry while it works.
/// @return false, with the entries unchanged, if there is no memory.
bool sortByPrefixes(TranslationEntry* first, int count) noexcept;

}  // namespace atr

#endif  // ATR_TRANSLATION_KEY_SORT_H
