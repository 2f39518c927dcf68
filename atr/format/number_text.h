// Numbers as text, as printf would write them. A template never reaches printf as its format:
// integers are written here, and floating-point numbers use literal formats.
#ifndef ATR_FORMAT_NUMBER_TEXT_H
#define ATR_FORMAT_NUMBER_TEXT_H

#include <cstddef>

#include "atr/format/conversion_layout.h"

namespace atr {

/// The text of one number, NUL-terminated, and its length in bytes. The buffer holds the longest
/// `double` (309 digits before the point) with the largest precision.
class NumberText {
 public:
  NumberText() noexcept { text_[0] = '\0'; }

  char* c_str() noexcept { return text_; }
  std::size_t bytes() const noexcept { return bytes_; }

  /// Takes the 0 out of a three-digit exponent.
  void fixExponent() noexcept;

  /// Prints `magnitude`, with a minus sign if `isNegative`, for one of the letters `d u o x X`.
  void printInteger(ConversionLayout const& layout, char letter, bool isNegative,
                    unsigned long long magnitude) noexcept;

  /// Prints one byte as `%c` does. A NUL ends the text.
  void printCharacter(ConversionLayout const& layout, char byte) noexcept;

  /// Prints `value` for one of the letters `E e f g`, with the decimal point of the process locale.
  void printDouble(ConversionLayout const& layout, char letter, double value) noexcept;

 private:
  static constexpr std::size_t kRoom = kMaxField + 400;

  std::size_t bytes_ = 0;
  char text_[kRoom];
};

}  // namespace atr

#endif  // ATR_FORMAT_NUMBER_TEXT_H
