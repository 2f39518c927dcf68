// A hash index beside the sorted table: one look for a key in the place of a search by halves.
#ifndef ATR_TRANSLATION_KEY_INDEX_H
#define ATR_TRANSLATION_KEY_INDEX_H

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "atr/translation/translation_table.h"

namespace atr {

/// The hash of a key. Equal keys have equal ones.
std::uint32_t hashOf(std::string_view key) noexcept;

/// The index of a table that stands. It is optional: without memory, or for keys made to collide,
/// it stays empty, and the table is searched.
class KeyIndex {
 public:
  /// Indexes a sorted table; of equal keys the last.
  void build(TranslationTable const& table) noexcept;

  /// Gives the index back.
  void clear() noexcept;

  bool isEmpty() const noexcept { return slots_ == nullptr; }

  /// The text of `key`, or a view of null. @pre not empty, and `table` is the one that was indexed.
  std::string_view find(TranslationTable const& table, std::string_view key) const noexcept;

 private:
  struct Slot {
    std::uint32_t hash;
    int entry;  // 0 for a free slot, else its place, from 1
  };

  // In bytes, measured once.
  struct Lengths {
    int key;
    int text;
  };

  bool insert(TranslationTable const& table, int entry) noexcept;

  // One block of mem_Calloc: a power of two of slots, of which three in four at least are free, so
  // that most keys that are not there meet a free one at once; then the lengths of each entry.
  Slot* slots_ = nullptr;
  Lengths* lengths_ = nullptr;
  std::uint32_t mask_ = 0;
};

}  // namespace atr

#endif  // ATR_TRANSLATION_KEY_INDEX_H
