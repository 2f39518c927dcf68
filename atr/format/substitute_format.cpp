// One frame for the numbers: the letter decides between an integer, a character and a double.
#include "atr/format/substitute_format.h"

#include <cstdint>
#include <type_traits>

#include "atr/format/conversion_layout.h"
#include "atr/format/fmt.h"
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

template <class Int>
void substituteInteger(atr_translate& message, int position, Int value) {
  char const* const format = message.Format(position);
  if (format == nullptr) return;
  NumberText text;
  char const letter = atr_Fmt(format).Letter();
  switch (letter) {
    case 'E':
    case 'e':
    case 'f':
    case 'g':
      text.printDouble(kNoLayout, letter, static_cast<double>(value));
      break;
    case 'c':
      text.printCharacter(parseLayout(format), static_cast<char>(value));
      break;
    case 's':
      printInteger(text, kNoLayout, 'd', value);
      break;
    default:
      printInteger(text, parseLayout(format), letter, value);
      break;
  }
  message.AddSubstitution(position, text.c_str(), nullptr);
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
  char const* const format = message.Format(position);
  if (format == nullptr) return;
  NumberText text;
  char const letter = atr_Fmt(format).Letter();
  if (letter == 'E' || letter == 'e' || letter == 'f' || letter == 'g') {
    text.printDouble(parseLayout(format), letter, value);
    atr_translate::FixExponent(text.c_str());
  } else {
    text.printDouble(kNoLayout, 'e', value);
  }
  message.AddSubstitution(position, text.c_str(), nullptr);
}

void atr_SubstituteFormat(atr_translate& message, int position, float value) {
  atr_SubstituteFormat(message, position, static_cast<double>(value));
}

void atr_SubstituteFormat(atr_translate& message, int position, char const* value) {
  char const* const format = message.Format(position);
  if (format == nullptr) return;
  atr_Fmt conversion(format);
  bool const isText = conversion.Letter() == 's';
  message.AddSubstitution(position, value, isText ? format : nullptr);
}

void atr_SubstituteFormat(atr_translate& message, int position, atr_StringBase const& value) {
  atr_StringBasePrv const text(value);
  atr_SubstituteFormat(message, position, text.c_str());
}

void atr_SubstituteFormat(atr_translate& message, int position, void const* value) {
  auto const bits = static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(value));
  atr_SubstituteFormat(message, position, bits);
}
