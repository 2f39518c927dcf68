// The index of a message's slots: who has which rank, and where each stands in the compiled text.
#ifndef ATR_FORMAT_SLOT_INDEX_H
#define ATR_FORMAT_SLOT_INDEX_H

#include <algorithm>
#include <cstddef>
#include <new>

#include "atr/format/translate.h"

namespace atr {

/// A view of the block that a message's field `sorted` points to:
///
///     sorted -> [ pointer to a slot, by rank ... | place, in template order ... | place of the end
///     ]
///                 `count` of them                  `count` of them
///
/// The field is a plain array of pointers and the message has no other field to spare, so the
/// places stand behind the pointers. While slots are numbered and no pointer is stored yet, their
/// marks stand where the pointers will.
class SlotIndex {
 public:
  using Slot = atr_translate::StrArgs;

  /// Where a placeholder stands in the compiled text, which may hold "%s" of its own, and how many
  /// bytes of substitution go there. The place of the end is where the text ends.
  struct Place {
    std::size_t at;
    std::size_t bytes;
  };

  /// A new block of operator new for `slots` slots. The caller keeps it as `sorted`.
  static Slot** newBlock(std::size_t slots) {
    std::size_t const bytes = slots * (sizeof(Slot*) + sizeof(Place)) + sizeof(Place);
    return static_cast<Slot**>(::operator new(bytes));
  }

  SlotIndex(Slot** block, int count) noexcept : block_(block), count_(count) {}

  Slot** pointers() const noexcept { return block_; }
  Place* places() const noexcept { return reinterpret_cast<Place*>(block_ + count_); }

  /// Room for `count` + 1 bytes, as long as no pointer is stored.
  char* marks() const noexcept { return reinterpret_cast<char*>(block_); }

  /// Moves the places to where they stand for `count` slots, which are not more than before.
  void closeUp(int count) noexcept {
    Place const* const before = places();
    count_ = count;
    std::copy_n(before, count + 1, places());
  }

 private:
  Slot** block_;
  int count_;
};

}  // namespace atr

#endif  // ATR_FORMAT_SLOT_INDEX_H
