// One line for a message: look the template up, put its values in, answer the text.
//
//     std::cout << atr::message("%d of %d files copied to %s", done, all, target) << '\n';
//
// ATR_T around the template has it checked against the values when the program is compiled.
#ifndef ATR_MESSAGE_H
#define ATR_MESSAGE_H

#include <type_traits>

#include "atr/format/substitute_format.h"
#include "atr/format/template_check.h"
#include "atr/format/translate.h"
#include "atr/std.h"

/// A message template that is checked at compile time, for atr::message and atr::plural; converts
/// to `char const*` too. It also marks the text for extraction.
///
/// Refused, with the conversion and the reason in the error: what the library would drop (`%i`, a
/// single `%`), a number used twice, and values whose number or kind does not suit the conversions.
/// @param text a string literal.
#define ATR_T(text)                                                                        \
  ([]() noexcept {                                                                         \
    struct AtrText {                                                                       \
      static constexpr char const* get() noexcept { return "" text; }                      \
      static constexpr unsigned long long bytes() noexcept { return sizeof("" text) - 1; } \
    };                                                                                     \
    return ::atr::detail::CheckedText<AtrText>();                                          \
  }())

namespace atr {

namespace detail {
inline namespace ATR_HEADER_VERSION {

template <class... Values>
atr_String formatted(char const* text, Values const&... values) {
  static_cast<void>((0 + ... + static_cast<int>(kindOf<std::decay_t<Values const>>())));
  atr_translate message(text);
  int position = 0;
  (atr_SubstituteFormat(message, ++position, values), ...);
  return message.Result();
}

}  // namespace ATR_HEADER_VERSION
}  // namespace detail

inline namespace ATR_HEADER_VERSION {

/// The text of a message: the translation of `text`, or `text` itself, with the values in the
/// places of its conversions by their ranks. Costs what atr_translate and atr_SubstituteFormat do.
/// @param text a template, borrowed for the call; ATR_T has it checked.
/// @param values numbers, texts (`char const*`, atr_String, std::string, std::string_view) and
///   object pointers. An enumeration or a `bool` is refused: a cast says what is meant.
template <class... Values>
atr_String message(char const* text, Values const&... values) {
  return detail::formatted(text, values...);
}
/// The same, checked.
template <class Text, class... Values>
atr_String message(detail::CheckedText<Text> text, Values const&... values) {
  detail::checkValues<Text, std::decay_t<Values const>...>();
  return detail::formatted(text, values...);
}

}  // namespace ATR_HEADER_VERSION
}  // namespace atr

#endif  // ATR_MESSAGE_H
