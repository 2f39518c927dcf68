// Messages that count: the plural form that the translator's language has for a number.
//
//     atr::plural("%d file in %s", "%d files in %s", n, folder)
//
// The dictionary has the language's rule, in the notation of gettext's Plural-Forms, and a form for
// each index that the rule can give:
//
//     msg['\@plural'] = r'n == 1 ? 0 : n >= 2 && n <= 4 ? 1 : 2'
//     msg['%d file in %s\@plural0'] = r'...'
//     msg['%d files in %s\@plural1'] = r'...'
//     msg['%d files in %s\@plural2'] = r'...'
#ifndef ATR_PLURAL_H
#define ATR_PLURAL_H

#include <type_traits>

#include "atr/format/plural_rule.h"
#include "atr/message.h"
#include "atr/translation/translation.h"

namespace atr {

namespace detail {
inline namespace ATR_HEADER_VERSION {

/// The index of the plural form for `n` in the language of the dictionary. Without a rule, and with
/// one that is broken, it is 0 for one and else 1.
inline int pluralIndex(unsigned long long n) {
  atr_String const rule = atr_raw("\\@plural");
  int const index = PluralRule(rule.begin(), rule.end()).formFor(n).index;
  if (index >= 0) return index;
  return n == 1 ? 0 : 1;
}

/// The key of the form for `n`: the source's own form, the tail `\@plural` and the index.
inline atr_String pluralKey(char const* one, char const* other, unsigned long long n) {
  constexpr char kTail[] = "\\@plural";
  Decimal const index(static_cast<long long>(pluralIndex(n)));
  atr_String key(n == 1 ? one : other);
  key.append(kTail, sizeof kTail - 1, 0, atr_String::kAll);
  return key.append(index.begin(), index.bytes(), 0, atr_String::kAll);
}

template <class Number>
constexpr unsigned long long magnitudeOf(Number n) noexcept {
  auto const bits = static_cast<unsigned long long>(n);
  return n < 0 ? 0 - bits : bits;
}

template <class... Values>
constexpr void checkForm(char const*) noexcept {}
template <class... Values, class Text>
constexpr void checkForm(CheckedText<Text>) noexcept {
  checkValues<Text, Values...>();
}

}  // namespace ATR_HEADER_VERSION
}  // namespace detail

inline namespace ATR_HEADER_VERSION {

/// The text of a message that counts, in the plural form for `n`. Both forms, and every form in a
/// dictionary, have the same conversions, since values go by rank. A form that the dictionary does
/// not have is the source's own.
/// @param one the form for 1 in the program's language. ATR_T has it checked; so too below.
/// @param other the form for every other number.
/// @param n the number, which is also the first value. A negative one goes by its magnitude.
/// @param values the other values, as in atr::message.
template <class One, class Other, class Number, class... Values>
atr_String plural(One const& one, Other const& other, Number const& n, Values const&... values) {
  static_assert(std::is_integral_v<Number> && !std::is_same_v<Number, bool>,
                "a plural form is chosen by an integer");
  detail::checkForm<Number, std::decay_t<Values const>...>(one);
  detail::checkForm<Number, std::decay_t<Values const>...>(other);
  atr_String const key = detail::pluralKey(one, other, detail::magnitudeOf(n));
  return detail::formatted(key.c_str(), n, values...);
}

}  // namespace ATR_HEADER_VERSION
}  // namespace atr

#endif  // ATR_PLURAL_H
