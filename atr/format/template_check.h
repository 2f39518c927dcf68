// The checks of message templates when a program is compiled: flaws of the template, and values
// that do not suit its conversions. Each refusal says what is wrong in words of its own.
//
// What is in namespace atr::detail may change with any version.
#ifndef ATR_FORMAT_TEMPLATE_CHECK_H
#define ATR_FORMAT_TEMPLATE_CHECK_H

#include <cstddef>
#include <type_traits>
#include <utility>

#include "atr/format/substitute_format.h"
#include "atr/format/template_grammar.h"
#include "atr/frame/export.h"

namespace atr {
namespace detail {
inline namespace ATR_HEADER_VERSION {

// --- what a template asks for -------------------------------------------------------------------

enum class Flaw { kNone, kLostLetter, kLostEnd, kUsedTwice };

/// The conversions of a template in the order of their ranks, and its first flaw.
/// @param room one more than the most conversions that there can be.
template <std::size_t room>
class TemplateFacts {
 public:
  constexpr TemplateFacts(char const* text, char const* end) noexcept : end_(end) {
    scanTemplate(text, end, findPercentByBytes, *this);
    char marks[room + 1] = {};
    numberSlots(slots_, count_, marks);
    sort();
  }

  constexpr int count() const noexcept { return count_; }
  /// The letter of a rank, from 1.
  constexpr char letter(int rank) const noexcept { return slots_[rank - 1].letter; }
  constexpr Flaw flaw() const noexcept { return flaw_; }
  /// The letter that is lost, or the number that is used twice.
  constexpr int culprit() const noexcept { return culprit_; }

  constexpr void text(char const*, char const*) noexcept {}
  constexpr void conversion(Conversion const& c) noexcept {
    slots_[count_].position = c.number;
    slots_[count_].letter = *c.letter;
    ++count_;
  }
  constexpr void lost(Conversion const& c) noexcept {
    if (c.letter == end_) return note(Flaw::kLostEnd, 0);
    note(Flaw::kLostLetter, *c.letter);
  }

 private:
  struct Slot {
    int position = 0;
    char letter = '\0';
  };

  constexpr void note(Flaw flaw, int culprit) noexcept {
    if (flaw_ != Flaw::kNone) return;
    flaw_ = flaw;
    culprit_ = culprit;
  }

  constexpr void sort() noexcept {
    for (int i = 1; i < count_; ++i) {
      for (int j = i; j > 0 && slots_[j - 1].position >= slots_[j].position; --j) {
        Slot const slot = slots_[j];
        if (slots_[j - 1].position == slot.position) return note(Flaw::kUsedTwice, slot.position);
        slots_[j] = slots_[j - 1];
        slots_[j - 1] = slot;
      }
    }
  }

  char const* end_;
  Slot slots_[room] = {};
  int count_ = 0;
  Flaw flaw_ = Flaw::kNone;
  int culprit_ = 0;
};

// A tail tells meanings apart and is never shown.
constexpr char const* endWithoutTail(char const* p, char const* end) noexcept {
  for (; end - p >= 2; ++p) {
    if (p[0] == '\\' && p[1] == '@') return p;
  }
  return end;
}

template <class Text>
constexpr auto factsOf() noexcept {
  char const* const begin = Text::get();
  return TemplateFacts<Text::bytes() / 2 + 1>(begin, endWithoutTail(begin, begin + Text::bytes()));
}

// --- the words of the errors ------------------------------------------------------------------

// A static_assert takes literal words alone, so that each character has one of its own.
#define ATR_LOSES(c)              \
  static_assert(letter != (c)[0], \
                "'%" c "' is not one of E X c d e f g o s u x: its value would be lost")
#define ATR_LOST(c1, c2, c3, c4, c5, c6) \
  ATR_LOSES(c1);                         \
  ATR_LOSES(c2);                         \
  ATR_LOSES(c3);                         \
  ATR_LOSES(c4);                         \
  ATR_LOSES(c5);                         \
  ATR_LOSES(c6)
/// An error for a character that a conversion cannot end with.
template <int letter>
struct LostLetter {
  static_assert(letter != ' ', "'% ' is no conversion, and a single % is lost: write %%");
  ATR_LOST("!", "\"", "#", "$", "&", "'");
  ATR_LOST("(", ")", "*", "+", ",", "/");
  ATR_LOST(":", ";", "<", "=", ">", "?");
  ATR_LOST("@", "A", "B", "C", "D", "F");
  ATR_LOST("G", "H", "I", "J", "K", "L");
  ATR_LOST("M", "N", "O", "P", "Q", "R");
  ATR_LOST("S", "T", "U", "V", "W", "Y");
  ATR_LOST("Z", "[", "\\", "]", "^", "_");
  ATR_LOST("`", "a", "b", "h", "i", "j");
  ATR_LOST("k", "m", "n", "p", "q", "r");
  ATR_LOST("t", "v", "w", "y", "z", "{");
  ATR_LOST("|", "}", "~", "~", "~", "~");
  static_assert(letter >= ' ' && letter != '\x7f',
                "a % before a byte that is no letter is lost: write %%");
  static_assert(letter != '%', "a % behind an unfinished conversion: '%5%' is none; write %%");
};
#undef ATR_LOST
#undef ATR_LOSES

#define ATR_TWICE(digit) \
  static_assert(number != digit[0] - '0', "'%" digit "$' is used twice: a rank has one value")
#define ATR_TWICE_OF(digit1, digit2, digit3, digit4, digit5) \
  ATR_TWICE(digit1);                                         \
  ATR_TWICE(digit2);                                         \
  ATR_TWICE(digit3);                                         \
  ATR_TWICE(digit4);                                         \
  ATR_TWICE(digit5)
/// An error for a number that two conversions have.
template <int number>
struct UsedTwice {
  ATR_TWICE_OF("0", "1", "2", "3", "4");
  ATR_TWICE_OF("5", "6", "7", "8", "9");
  static_assert(number <= 9, "a number is used twice: a rank has one value");
};
#undef ATR_TWICE_OF
#undef ATR_TWICE

enum class ValueKind { kInteger, kFloating, kText, kPointer };

#define ATR_NEEDS(character, wanted, words)                          \
  static_assert(letter != character[0] || kind == ValueKind::wanted, \
                "'%" character "' takes " words)
/// @param rank stands in the compiler's trace, beside the letter.
template <int rank, char letter, ValueKind kind>
struct Suits {
  ATR_NEEDS("c", kInteger, "a character, as an integer");
  ATR_NEEDS("d", kInteger, "an integer");
  ATR_NEEDS("u", kInteger, "an integer");
  ATR_NEEDS("o", kInteger, "an integer");
  static_assert(letter != 'x' || kind == ValueKind::kInteger || kind == ValueKind::kPointer,
                "'%x' takes an integer or an object pointer");
  static_assert(letter != 'X' || kind == ValueKind::kInteger || kind == ValueKind::kPointer,
                "'%X' takes an integer or an object pointer");
  ATR_NEEDS("E", kFloating, "a float or a double; cast an integer");
  ATR_NEEDS("e", kFloating, "a float or a double; cast an integer");
  ATR_NEEDS("f", kFloating, "a float or a double; cast an integer");
  ATR_NEEDS("g", kFloating, "a float or a double; cast an integer");
  ATR_NEEDS("s", kText, "a text; a number has letters of its own");
};
#undef ATR_NEEDS

#define ATR_EMPTY(c)                                                             \
  static_assert(letter != (c)[0], "'%" c                                         \
                                  "' has no value: there are fewer values than " \
                                  "conversions")
#define ATR_EMPTY_OF(c1, c2, c3, c4) \
  ATR_EMPTY(c1);                     \
  ATR_EMPTY(c2);                     \
  ATR_EMPTY(c3);                     \
  ATR_EMPTY(c4)
/// An error for a conversion without a value.
template <int rank, char letter>
struct Empty {
  ATR_EMPTY_OF("d", "s", "f", "c");
  ATR_EMPTY_OF("u", "x", "X", "o");
  ATR_EMPTY_OF("E", "e", "g", "g");
};
#undef ATR_EMPTY_OF
#undef ATR_EMPTY

// --- what a value is --------------------------------------------------------------------------

template <class T>
inline constexpr bool kIsWideCharacter =
    std::is_same_v<T, wchar_t> || std::is_same_v<T, char16_t> || std::is_same_v<T, char32_t>
#ifdef __cpp_char8_t
    || std::is_same_v<T, char8_t>
#endif
    ;

template <class T>
inline constexpr bool kIsText = std::is_convertible_v<T, char const*> || kIsString<T> ||
                                kHasText<T> || kIsView<T> || std::is_same_v<T, std::nullptr_t>;

/// The kind of a value of type T, which is decayed. Refuses what has none.
template <class T>
constexpr ValueKind kindOf() noexcept {
  static_assert(!std::is_same_v<T, bool>,
                "a bool is no value of a message: show a word, or cast it to int");
  static_assert(!std::is_enum_v<T>,
                "an enumeration is no value of a message: cast it to int, or show a word");
  static_assert(!kIsWideCharacter<T>,
                "a wide character is no value of a message: convert it to a text first");
  static_assert(!std::is_same_v<T, long double>,
                "a long double is no value of a message: cast it to double");
  static_assert(std::is_arithmetic_v<T> || std::is_pointer_v<T> || std::is_enum_v<T> || kIsText<T>,
                "a value of a message is a number, a text or an object pointer");
  if (kIsText<T>) return ValueKind::kText;
  if (std::is_pointer_v<T>) return ValueKind::kPointer;
  return std::is_floating_point_v<T> ? ValueKind::kFloating : ValueKind::kInteger;
}

// --- the two together -------------------------------------------------------------------------

/// A template without flaws: to make one of a text that has some is an error.
/// @param Text has the literal: get() and bytes().
template <class Text>
class CheckedText {
 public:
  constexpr CheckedText() noexcept {
    constexpr auto kFacts = factsOf<Text>();
    if constexpr (kFacts.flaw() == Flaw::kLostLetter) {
      static_cast<void>(LostLetter<kFacts.culprit()>());
    }
    if constexpr (kFacts.flaw() == Flaw::kUsedTwice) {
      static_cast<void>(UsedTwice<kFacts.culprit()>());
    }
    static_assert(kFacts.flaw() != Flaw::kLostEnd,
                  "the text ends within a conversion, or with a single %, which is lost: write %%");
  }

  constexpr operator char const*() const noexcept { return Text::get(); }
};

template <class Text, class... Values>
struct CheckValues {
  static constexpr auto kFacts = factsOf<Text>();
  static constexpr int kValues = sizeof...(Values);

  template <std::size_t at, class Value>
  static constexpr void checkOne() noexcept {
    constexpr int kRank = static_cast<int>(at) + 1;
    constexpr ValueKind kKind = kindOf<Value>();
    if constexpr (kRank <= kFacts.count()) {
      static_cast<void>(Suits<kRank, kFacts.letter(kRank), kKind>());
    }
  }

  template <std::size_t... at>
  static constexpr void check(std::index_sequence<at...>) noexcept {
    static_assert(kFacts.count() >= kValues,
                  "there are more values than conversions: the last ones would be lost");
    if constexpr (kFacts.flaw() == Flaw::kNone) {
      (checkOne<at, Values>(), ...);
      if constexpr (kFacts.count() > kValues) {
        static_cast<void>(Empty<kValues + 1, kFacts.letter(kValues + 1)>());
      }
    }
  }
};

template <class Text, class... Values>
constexpr void checkValues() noexcept {
  CheckValues<Text, Values...>::check(std::make_index_sequence<sizeof...(Values)>());
}

}  // namespace ATR_HEADER_VERSION
}  // namespace detail
}  // namespace atr

#endif  // ATR_FORMAT_TEMPLATE_CHECK_H
