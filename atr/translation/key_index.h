// A hash index beside the sorted table: one look for a key in the place of a search by halves.
#ifndef ATR_TRANSLATION_KEY_INDEX_H
#define ATR_TRANSLATION_KEY_INDEX_H

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "atr/translation/translation_entry.h"

namespace atr {

/// The hash of a key. Equal keys have equal ones.
std::uint32_t hashOf(std::string_view key) noexcept;

/// An index of a table's entries, which may be sorted behind it. It is optional: without memory, or
/// for keys made to collide, it stays empty, and the table is searched.
class KeyIndex {
 public:
  /// Indexes the entries; of equal keys the last. Their texts must stand until the index is
  /// cleared.
  void build(TranslationEntry const* entries, int count) noexcept;

  /// Gives the index back.
  void clear() noexcept;

  bool isEmpty() const noexcept { return slots_ == nullptr; }

  /// The text of `key`, or a view of null. @pre not empty.
  std::string_view find(std::string_view key) const noexcept;

 private:
  struct Slot {
    std::uint32_t hash;
    int record;  // 0 for a free slot, else its place, from 1
  };

  // An entry and its lengths, all that a lookup reads, side by side.
  struct Record {
    std::string_view key() const noexcept {
      return {entry.key, static_cast<std::size_t>(keyBytes)};
    }

    TranslationEntry entry;
    int keyBytes;
    int textBytes;
  };

  bool insert(int at) noexcept;

  // One block of mem_Calloc: a power of two of slots, of which three in four at least are free, so
  // that most keys that are not there meet a free one at once; then the records, in the order that
  // the entries had.
  Slot* slots_ = nullptr;
  Record* records_ = nullptr;
  std::uint32_t mask_ = 0;
};

}  // namespace atr

#endif  // ATR_TRANSLATION_KEY_INDEX_H
