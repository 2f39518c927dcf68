// A hash index beside the sorted table: a lookup finds its key in about one step where a binary
// search of 100 000 entries takes seventeen.
#ifndef ATR_TRANSLATION_KEY_INDEX_H
#define ATR_TRANSLATION_KEY_INDEX_H

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "atr/translation/translation_entry.h"

namespace atr {

/// The hash of a key; the tests use it to make keys collide.
std::uint32_t hashOf(std::string_view key) noexcept;

/// An index over the entries of a table. It holds its own copies of their pointers, so the entries
/// may be sorted after it was built. It is optional: without memory, or for keys that were made to
/// collide, it stays empty, and the caller searches the table.
class KeyIndex {
 public:
  /// Indexes the entries; of equal keys the last one. Keys and texts must live until the index is
  /// cleared. O(bytes of all keys).
  void build(TranslationEntry const* entries, int count) noexcept;

  /// Frees the memory; the index is empty then.
  void clear() noexcept;

  bool isEmpty() const noexcept { return slots_ == nullptr; }

  /// The text of `key`, or a view of null. @pre not empty.
  std::string_view find(std::string_view key) const noexcept;

 private:
  struct Slot {
    std::uint32_t hash;
    int record;  // 0 if the slot is free, otherwise the number of its record, counted from 1
  };

  // An entry with its two lengths: all that a lookup reads, in one cache line as a rule.
  struct Record {
    std::string_view key() const noexcept {
      return {entry.key, static_cast<std::size_t>(keyBytes)};
    }

    TranslationEntry entry;
    int keyBytes;
    int textBytes;
  };

  bool insert(int at) noexcept;

  // One block of mem_Calloc: the slots, then the records in the order of the entries. The slots
  // are a power of two, and at least three in four are free, so that a lookup of a key that is not
  // there meets a free slot at once as a rule.
  Slot* slots_ = nullptr;
  Record* records_ = nullptr;
  std::uint32_t mask_ = 0;
};

}  // namespace atr

#endif  // ATR_TRANSLATION_KEY_INDEX_H
