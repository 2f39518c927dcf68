// The letter of the conversion decides whether a number is printed as an integer, a character or a
// double.
#include "atr/format/substitute_format.h"

#include <charconv>
#include <cstdint>
#include <new>
#include <type_traits>

#include "atr/format/conversion_layout.h"
#include "atr/format/message_slots.h"
#include "atr/format/number_text.h"
#include "atr/strings/working_string.h"

using namespace atr;

namespace {

constexpr ConversionLayout kNoLayout;

template <class Int>
void printInteger(NumberText& text, ConversionLayout const& layout, char letter, Int value) {
  using Unsigned = std::make_unsigned_t<Int>;
  auto const bits = static_cast<Unsigned>(value);
  bool const isNegative = letter == 'd' && value < 0;
  text.printInteger(layout, letter, isNegative, isNegative ? Unsigned{0} - bits : bits);
}

// The most common conversions, %d and %u alone, are printed into the slot's block without a copy.
constexpr std::size_t kDecimalRoom = 24;  // bytes; -2^63 has 20

template <class Int>
void putPlainDecimal(atr_translate& message, MessageSlots::Slot& slot, Int value) {
  auto* const block = static_cast<char*>(::operator new(kDecimalRoom));
  char* const end = std::to_chars(block, block + kDecimalRoom - 1, value).ptr;
  *end = '\0';
  MessageSlots::take(message, slot, block, static_cast<std::size_t>(end - block));
}

template <class Int>
void substituteInteger(atr_translate& message, int position, Int value) {
  MessageSlots::Slot* const slot = MessageSlots::at(message, position);
  if (slot == nullptr) return;
  char const letter = letterOf(slot->format);
  if (letter == 's' || (letter == 'd' && isPlain(slot->format))) {
    return putPlainDecimal(message, *slot, value);
  }
  if (letter == 'u' && isPlain(slot->format)) {
    return putPlainDecimal(message, *slot, static_cast<std::make_unsigned_t<Int>>(value));
  }
  NumberText text;
  switch (letter) {
    case 'E':
    case 'e':
    case 'f':
    case 'g':
      text.printDouble(kNoLayout, letter, static_cast<double>(value));
      break;
    case 'c':
      text.printCharacter(parseLayout(slot->format), static_cast<char>(value));
      break;
    default:
      printInteger(text, parseLayout(slot->format), letter, value);
      break;
  }
  MessageSlots::put(message, *slot, text.c_str(), text.bytes());
}

}  // namespace

void atr_SubstituteFormat(atr_translate& message, int position, int value) {
  substituteInteger(message, position, value);
}

void atr_SubstituteFormat(atr_translate& message, int position, unsigned int value) {
  substituteInteger(message, position, value);
}

void atr_SubstituteFormat(atr_translate& message, int position, long long value) {
  substituteInteger(message, position, value);
}

void atr_SubstituteFormat(atr_translate& message, int position, unsigned long long value) {
  substituteInteger(message, position, value);
}

void atr_SubstituteFormat(atr_translate& message, int position, double value) {
  MessageSlots::Slot* const slot = MessageSlots::at(message, position);
  if (slot == nullptr) return;
  NumberText text;
  char const letter = letterOf(slot->format);
  if (letter == 'E' || letter == 'e' || letter == 'f' || letter == 'g') {
    text.printDouble(parseLayout(slot->format), letter, value);
    text.fixExponent();
  } else {
    text.printDouble(kNoLayout, 'e', value);
  }
  MessageSlots::put(message, *slot, text.c_str(), text.bytes());
}

void atr_SubstituteFormat(atr_translate& message, int position, float value) {
  atr_SubstituteFormat(message, position, static_cast<double>(value));
}

void atr_SubstituteFormat(atr_translate& message, int position, char const* value) {
  MessageSlots::Slot* const slot = MessageSlots::at(message, position);
  if (slot == nullptr) return;
  bool const isText = letterOf(slot->format) == 's';
  MessageSlots::putField(message, *slot, value, isText ? slot->format : nullptr);
}

void atr_SubstituteFormat(atr_translate& message, int position, atr_StringBase const& value) {
  atr_StringBasePrv const text(value);
  atr_SubstituteFormat(message, position, text.c_str());
}

void atr_SubstituteFormat(atr_translate& message, int position, void const* value) {
  auto const bits = static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(value));
  atr_SubstituteFormat(message, position, bits);
}
