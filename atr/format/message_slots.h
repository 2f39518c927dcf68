// What the functions that turn values into texts do with a message beside its public face.
#ifndef ATR_FORMAT_MESSAGE_SLOTS_H
#define ATR_FORMAT_MESSAGE_SLOTS_H

#include <cstddef>

#include "atr/format/translate.h"

namespace atr {

struct MessageSlots {
  using Slot = atr_translate::StrArgs;

  /// The slot at `position`, or null for an illegal one.
  static Slot* at(atr_translate const& message, int position) { return message.slotAt(position); }

  /// Makes a block of operator new, with `bytes` bytes of text and a NUL, the substitution of the
  /// slot. What was there goes only now, so that a text may come from the slot that it goes into.
  static void take(atr_translate& message, Slot& slot, char* block, std::size_t bytes) noexcept;

  /// The same with a copy of `text`.
  static void put(atr_translate& message, Slot& slot, char const* text, std::size_t bytes);

  /// As AddSubstitution.
  static void putField(atr_translate& message, Slot& slot, char const* text, char const* format);
};

}  // namespace atr

#endif  // ATR_FORMAT_MESSAGE_SLOTS_H
