// The index of a message's slots: which slot has which rank, and where each stands in the text.
#ifndef ATR_FORMAT_SLOT_INDEX_H
#define ATR_FORMAT_SLOT_INDEX_H

#include <algorithm>
#include <cstddef>
#include <new>

#include "atr/format/translate.h"

namespace atr {

/// A view of the block that a message's field `sorted` points to:
///
///     sorted -> [ pointers to slots, by rank | places, in template order | place of the end ]
///                 `count` of them              `count` of them             one
///
/// The fields of a message are fixed: `sorted` must be an array of pointers, and there is no field
/// for a second array. So the places follow the pointers in the same block. While the slots are
/// being numbered no pointer is stored yet, and the memory of the pointers holds the marks.
class SlotIndex {
 public:
  using Slot = atr_translate::StrArgs;

  /// Where a placeholder "%s" stands in the compiled text, and how many bytes of substitution
  /// replace it. It cannot be searched for: "%%s" in a template leaves a "%s" that is text. The
  /// place of the end is where the compiled text ends.
  struct Place {
    std::size_t at;
    std::size_t bytes;
  };

  /// A new block from operator new for `slots` slots. The caller stores it in `sorted`.
  static Slot** newBlock(std::size_t slots) {
    std::size_t const bytes = slots * (sizeof(Slot*) + sizeof(Place)) + sizeof(Place);
    return static_cast<Slot**>(::operator new(bytes));
  }

  SlotIndex(Slot** block, int count) noexcept : block_(block), count_(count) {}

  Slot** pointers() const noexcept { return block_; }
  Place* places() const noexcept { return reinterpret_cast<Place*>(block_ + count_); }

  /// Memory for `count` + 1 bytes, until the first pointer is stored.
  char* marks() const noexcept { return reinterpret_cast<char*>(block_); }

  /// Moves the places down to where they belong for `count` slots. @pre `count` is no larger than
  /// before.
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
