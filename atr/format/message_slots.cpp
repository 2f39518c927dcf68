// Puts the text of a value into its slot, and fits a text into the field its conversion asks for.
#include "atr/format/message_slots.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "atr/format/slot_index.h"
#include "atr/format/template_scan.h"
#include "atr/frame/words.h"
#include "atr/strings/body_room.h"

using namespace atr;

namespace {

// How a text is laid out in its field. Unlike those of a number, width and precision have no bound.
struct TextLayout {
  bool isLeft = false;
  int width = -1;      // negative: none
  int precision = -1;  // negative: none
};

// Reads what %d of scanf reads: blanks, a sign, digits. Without digits `value` is unchanged.
bool scanInt(char const*& p, int& value) noexcept {
  char const* q = p + std::strspn(p, " \t\n\v\f\r");
  bool const isNegative = *q == '-';
  if (isNegative || *q == '+') ++q;
  if (!isDigit(*q)) return false;
  int const magnitude = readNumber(q);
  value = isNegative ? -magnitude : magnitude;
  p = q;
  return true;
}

TextLayout parseTextLayout(char const* format) noexcept {
  TextLayout layout;
  char const* p = format + 1;
  if (*p == '-') {
    layout.isLeft = true;
    ++p;
  }
  bool const hasPoint = *p == '.' || (scanInt(p, layout.width) && *p == '.');
  if (hasPoint) scanInt(++p, layout.precision);
  return layout;
}

char* newText(char const* text, std::size_t bytes) {
  auto* const block = static_cast<char*>(::operator new(bytes + 1));
  copyBytes(block, text, bytes);
  block[bytes] = '\0';
  return block;
}

// A new block of `total` bytes and a NUL: [ blanks | text ], or to the left [ text | blanks ].
char* newField(char const* text, std::size_t used, std::size_t total, bool isLeft) {
  auto* const block = static_cast<char*>(::operator new(total + 1));
  std::memset(block + (isLeft ? used : 0), ' ', total - used);
  std::memcpy(block + (isLeft ? 0 : total - used), text, used);
  block[total] = '\0';
  return block;
}

}  // namespace

void MessageSlots::take(atr_translate& message, Slot& slot, char* block,
                        std::size_t bytes) noexcept {
  if (slot.substitution != nullptr) [[unlikely]]
    ::operator delete(slot.substitution);
  slot.substitution = block;
  SlotIndex(message.sorted, message.count).places()[&slot - message.args].bytes = bytes;
}

void MessageSlots::put(atr_translate& message, Slot& slot, char const* text, std::size_t bytes) {
  take(message, slot, newText(text, bytes), bytes);
}

void MessageSlots::putField(atr_translate& message, Slot& slot, char const* text,
                            char const* format) {
  char const* const value = text != nullptr ? text : "";
  std::size_t const length = std::strlen(value);
  bool const hasLayout = format != nullptr && format[0] != '\0' && format[1] != 's';
  if (!hasLayout) return put(message, slot, value, length);
  TextLayout const layout = parseTextLayout(format);
  std::size_t const used =
      layout.precision < 0 ? length : std::min(static_cast<std::size_t>(layout.precision), length);
  // The width may come from a dictionary and be any number. A field longer than a string can be is
  // refused here, before anything has changed.
  std::size_t const total = std::max(static_cast<std::size_t>(std::max(layout.width, 0)), used);
  checkedLength(total);
  take(message, slot, newField(value, used, total, layout.isLeft), total);
}

void atr_translate::AddSubstitution(int position, char const* text, char const* format) {
  StrArgs* const slot = slotAt(position);
  if (slot != nullptr) MessageSlots::putField(*this, *slot, text, format);
}
