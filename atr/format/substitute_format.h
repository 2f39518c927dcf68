// Values for messages. Each function looks at the conversion letter at the position and turns the
// value into text; a letter that does not suit the value never makes it be read as another type.
#ifndef ATR_FORMAT_SUBSTITUTE_FORMAT_H
#define ATR_FORMAT_SUBSTITUTE_FORMAT_H

#include <cstddef>

#include "atr/format/translate.h"
#include "atr/frame/export.h"
#include "atr/strings/string_arguments.h"
#include "atr/strings/string_base.h"

namespace atr {
namespace detail {
inline namespace ATR_HEADER_VERSION {

template <class T>
inline constexpr bool kIsForeignCharacter = false;
template <>
inline constexpr bool kIsForeignCharacter<signed char> = true;
template <>
inline constexpr bool kIsForeignCharacter<unsigned char> = true;
template <>
inline constexpr bool kIsForeignCharacter<wchar_t> = true;
template <>
inline constexpr bool kIsForeignCharacter<char16_t> = true;
template <>
inline constexpr bool kIsForeignCharacter<char32_t> = true;
#ifdef __cpp_char8_t
template <>
inline constexpr bool kIsForeignCharacter<char8_t> = true;
#endif

struct NoText {};
template <class T>
auto textOf(int) -> decltype(valueOf<T>().c_str());
template <class T>
NoText textOf(long);
template <class T>
auto bytesOf(int) -> decltype(valueOf<T>().size(), valueOf<T>().data());
template <class T>
NoText bytesOf(long);

template <class T>
inline constexpr bool kIsTextPointer = false;
template <>
inline constexpr bool kIsTextPointer<char const*> = true;

/// True for a class other than our strings with a c_str() that is a text of char.
template <class T>
inline constexpr bool kHasText = !kIsString<T> && kIsTextPointer<decltype(textOf<T>(0))>;
/// True for a class with the bytes of a text, which no NUL has to end.
template <class T>
inline constexpr bool kIsView =
    !kIsString<T> && !kHasText<T> && kIsTextPointer<decltype(bytesOf<T>(0))>;

}  // namespace ATR_HEADER_VERSION
}  // namespace detail
}  // namespace atr

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

/// A class whose `c_str()` is a text, such as std::string, goes as that text.
template <class Text, atr::detail::EnableIf<atr::detail::kHasText<Text>> = 0>
inline void atr_SubstituteFormat(atr_translate& message, int position, Text const& value) {
  atr_SubstituteFormat(message, position, static_cast<char const*>(value.c_str()));
}

/// A std::string_view goes as a copy that a NUL ends, with atr/std.h.
template <class View, atr::detail::EnableIf<atr::detail::kIsView<View>> = 0>
inline void atr_SubstituteFormat(atr_translate& message, int position, View const& value) {
  static_assert(atr::detail::StandardText<View>::kKnown,
                "a std::string_view is a value of a message with #include <atr/std.h>");
  atr_SubstituteFormat(message, position, atr_String(value.data(), value.size()).c_str());
}

/// A pointer to characters that are no `char` is refused, since what it shows would be its address.
template <class Character, atr::detail::EnableIf<atr::detail::kIsForeignCharacter<Character>> = 0>
inline void atr_SubstituteFormat(atr_translate&, int, Character const*) {
  static_assert(
      sizeof(Character) != 1,
      "a text of bytes that are no char: reinterpret_cast<char const*> shows it as a text, "
      "static_cast<void const*> as an address");
  static_assert(sizeof(Character) == 1,
                "a text of wide characters: convert it to the locale's encoding first (a path by "
                ".string()); static_cast<void const*> shows it as an address");
}

#endif  // ATR_FORMAT_SUBSTITUTE_FORMAT_H
