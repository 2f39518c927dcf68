// Values for messages. Each function looks at the conversion letter at the position and turns the
// value into text; a letter that does not suit the value never makes it be read as another type.
#ifndef ATR_FORMAT_SUBSTITUTE_FORMAT_H
#define ATR_FORMAT_SUBSTITUTE_FORMAT_H

#include <cstddef>

#include "atr/format/translate.h"
#include "atr/frame/export.h"
#include "atr/strings/string_base.h"

/// Puts an integer in. `d u x X o c` keep flags, width and precision of the template, `E e f g`
/// print the value as a double and `s` as plain decimal, both without them. Fields are cut to 1023.
/// An illegal position is silent.
ATR_API void atr_SubstituteFormat(atr_translate& message, int position, int value);
ATR_API void atr_SubstituteFormat(atr_translate& message, int position, unsigned int value);
ATR_API void atr_SubstituteFormat(atr_translate& message, int position, long long value);
ATR_API void atr_SubstituteFormat(atr_translate& message, int position, unsigned long long value);

/// Puts a floating-point number in: `E e f g` as the template has it, any other letter as a plain
/// `%e`. The decimal point is the process locale's.
ATR_API void atr_SubstituteFormat(atr_translate& message, int position, double value);
ATR_API void atr_SubstituteFormat(atr_translate& message, int position, float value);

/// Puts a text in, of any length: `s` with the width and precision of the template, in bytes, any
/// other letter as it is. A null text counts as empty.
ATR_API void atr_SubstituteFormat(atr_translate& message, int position, char const* value);
ATR_API void atr_SubstituteFormat(atr_translate& message, int position,
                                  atr_StringBase const& value);

/// Puts the bits of a pointer in, as an unsigned 64-bit integer: `x` gives hexadecimal.
ATR_API void atr_SubstituteFormat(atr_translate& message, int position, void const* value);

/// A `long` goes as the 64-bit type, so that std::int64_t and std::size_t fit on every platform.
inline void atr_SubstituteFormat(atr_translate& message, int position, long value) {
  atr_SubstituteFormat(message, position, static_cast<long long>(value));
}
inline void atr_SubstituteFormat(atr_translate& message, int position, unsigned long value) {
  atr_SubstituteFormat(message, position, static_cast<unsigned long long>(value));
}

/// A literal nullptr is a null text.
inline void atr_SubstituteFormat(atr_translate& message, int position, std::nullptr_t) {
  atr_SubstituteFormat(message, position, static_cast<char const*>(nullptr));
}

#endif  // ATR_FORMAT_SUBSTITUTE_FORMAT_H
