// The private access to a message for the functions that turn values into texts.
#ifndef ATR_FORMAT_MESSAGE_SLOTS_H
#define ATR_FORMAT_MESSAGE_SLOTS_H

#include <cstddef>

#include "atr/format/translate.h"

namespace atr {

struct MessageSlots {
  using Slot = atr_translate::StrArgs;

  /// The slot at `position`, or null for an illegal one.
  static Slot* at(atr_translate const& message, int position) { return message.slotAt(position); }

  /// Makes `block` the substitution of the slot: from operator new, `bytes` bytes of text and a
  /// NUL. Frees the previous one only now, because the new text may have been copied from it.
  static void take(atr_translate& message, Slot& slot, char* block, std::size_t bytes) noexcept;

  /// The same with a copy of `text`. Throws std::bad_alloc with nothing changed.
  static void put(atr_translate& message, Slot& slot, char const* text, std::size_t bytes);

  /// Does what atr_translate::AddSubstitution does, for a slot.
  static void putField(atr_translate& message, Slot& slot, char const* text, char const* format);
};

}  // namespace atr

#endif  // ATR_FORMAT_MESSAGE_SLOTS_H
