// Numbers as text, in the way of printf. No template reaches printf as a format: integers are
// written here, and floating-point numbers go by literal formats.
#ifndef ATR_FORMAT_NUMBER_TEXT_H
#define ATR_FORMAT_NUMBER_TEXT_H

#include <cstddef>

#include "atr/format/conversion_layout.h"

namespace atr {

/// The text of one number, NUL-terminated, and its bytes. The room holds the longest `double`
/// beside a full field.
class NumberText {
 public:
  NumberText() noexcept { text_[0] = '\0'; }

  char* c_str() noexcept { return text_; }
  std::size_t bytes() const noexcept { return bytes_; }

  /// Takes the 0 out of a three-digit exponent.
  void fixExponent() noexcept;

  /// `magnitude` with a minus sign if it `isNegative`, by one of the letters `d u o x X`.
  void printInteger(ConversionLayout const& layout, char letter, bool isNegative,
                    unsigned long long magnitude) noexcept;

  /// One byte, as `%c` has it: a NUL ends the text.
  void printCharacter(ConversionLayout const& layout, char byte) noexcept;

  /// By one of the letters `E e f g`. The decimal point is the process locale's.
  void printDouble(ConversionLayout const& layout, char letter, double value) noexcept;

 private:
  static constexpr std::size_t kRoom = kMaxField + 400;

  std::size_t bytes_ = 0;
  char text_[kRoom];
};

}  // namespace atr

#endif  // ATR_FORMAT_NUMBER_TEXT_H
