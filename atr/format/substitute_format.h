// Puts values into messages. Each function turns its value into text as the letter of the
// conversion asks. A letter that does not suit the value is safe: the value is converted, never
// reinterpreted.
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

/// Substitutes an integer. `d u x X o c` use the flags, width and precision of the template. `E e f
/// g` print the value as a double and `s` prints plain decimal; both ignore them. Width and
/// precision are at most 1023. A position that the message does not have is ignored.
ATR_API void atr_SubstituteFormat(atr_translate& message, int position, int value);
ATR_API void atr_SubstituteFormat(atr_translate& message, int position, unsigned int value);
ATR_API void atr_SubstituteFormat(atr_translate& message, int position, long long value);
ATR_API void atr_SubstituteFormat(atr_translate& message, int position, unsigned long long value);

/// Substitutes a floating-point number: `E e f g` as the template asks, any other letter as a plain
/// `%e`. The decimal point is that of the process locale.
ATR_API void atr_SubstituteFormat(atr_translate& message, int position, double value);
ATR_API void atr_SubstituteFormat(atr_translate& message, int position, float value);

/// Substitutes a text of any length: `s` with the width and precision of the template, in bytes;
/// any other letter without them. A null text counts as empty.
ATR_API void atr_SubstituteFormat(atr_translate& message, int position, char const* value);
ATR_API void atr_SubstituteFormat(atr_translate& message, int position,
                                  atr_StringBase const& value);

/// Substitutes the bits of a pointer, as an unsigned 64-bit integer: `x` shows hexadecimal.
ATR_API void atr_SubstituteFormat(atr_translate& message, int position, void const* value);

/// A `long` is passed as a 64-bit type, so std::int64_t and std::size_t work on every platform.
inline void atr_SubstituteFormat(atr_translate& message, int position, long value) {
  atr_SubstituteFormat(message, position, static_cast<long long>(value));
}
inline void atr_SubstituteFormat(atr_translate& message, int position, unsigned long value) {
  atr_SubstituteFormat(message, position, static_cast<unsigned long long>(value));
}

/// A literal `nullptr` counts as a null text.
inline void atr_SubstituteFormat(atr_translate& message, int position, std::nullptr_t) {
  atr_SubstituteFormat(message, position, static_cast<char const*>(nullptr));
}

/// A class with a `c_str()`, such as std::string, is passed as that text.
template <class Text, atr::detail::EnableIf<atr::detail::kHasText<Text>> = 0>
inline void atr_SubstituteFormat(atr_translate& message, int position, Text const& value) {
  atr_SubstituteFormat(message, position, static_cast<char const*>(value.c_str()));
}

/// A std::string_view is passed as a copy with a NUL at its end; this needs atr/std.h.
template <class View, atr::detail::EnableIf<atr::detail::kIsView<View>> = 0>
inline void atr_SubstituteFormat(atr_translate& message, int position, View const& value) {
  static_assert(atr::detail::StandardText<View>::kKnown,
                "a std::string_view is a value of a message with #include <atr/std.h>");
  atr_SubstituteFormat(message, position, atr_String(value.data(), value.size()).c_str());
}

/// A pointer to characters other than `char` does not compile: the message would show its address.
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
