// The arguments that strings take without a cast: counts of any integer type, numbers of exactly
// these types, and with atr/std.h the strings of the standard library.
//
// Everything in namespace atr::detail may change with any version.
#ifndef ATR_STRINGS_STRING_ARGUMENTS_H
#define ATR_STRINGS_STRING_ARGUMENTS_H

#include "atr/frame/export.h"
#include "atr/strings/string_base.h"

namespace atr {
namespace detail {
inline namespace ATR_HEADER_VERSION {

// Written here because <type_traits> would double the code that every client has to compile.
template <bool condition>
struct OnlyIf {};
template <>
struct OnlyIf<true> {
  using Type = int;
};
/// As the type of a template parameter, removes the function if `condition` is false.
template <bool condition>
using EnableIf = typename OnlyIf<condition>::Type;

template <class T>
T const& valueOf() noexcept;  // a T for decltype and sizeof; never defined

char isStringPointer(atr_StringBase const*);
long isStringPointer(...);
/// True for the string classes and for classes derived from them.
template <class T>
inline constexpr bool kIsString = sizeof(isStringPointer(static_cast<T*>(nullptr))) == 1;

/// Tells if T is a string or a view of the standard library. atr/std.h specialises it.
template <class T>
struct StandardText {
  static constexpr bool kKnown = false;
};

/// A position, a length or a count in bytes, made from any integer. A value that an int cannot hold
/// becomes the nearest int: as a count that means all bytes, as a position it is outside every
/// text.
class ByteCount {
  using Signed = long long;
  using Unsigned = unsigned long long;

 public:
  constexpr ByteCount(int value) noexcept : value_(value) {}
  constexpr ByteCount(unsigned int value) noexcept : value_(cut(Unsigned{value})) {}
  constexpr ByteCount(long value) noexcept : value_(cut(Signed{value})) {}
  constexpr ByteCount(unsigned long value) noexcept : value_(cut(Unsigned{value})) {}
  constexpr ByteCount(Signed value) noexcept : value_(cut(value)) {}
  constexpr ByteCount(Unsigned value) noexcept : value_(cut(value)) {}

  constexpr operator int() const noexcept { return value_; }

 private:
  static constexpr int kMost = 0x7fffffff;

  static constexpr int cut(Unsigned value) noexcept {
    return value < kMost ? static_cast<int>(value) : kMost;
  }
  static constexpr int cut(Signed value) noexcept {
    if (value >= 0) return cut(static_cast<Unsigned>(value));
    return value > -kMost ? static_cast<int>(value) : -kMost;
  }

  int value_;
};

/// The type that a number is printed as. `char` and `bool` have none: who passes them may expect a
/// character or a word.
template <class T>
struct NumberType {};
template <>
struct NumberType<short> {
  using Small = int;
};
template <>
struct NumberType<unsigned short> {
  using Small = unsigned int;
};
template <>
struct NumberType<int> {
  using Small = int;
};
template <>
struct NumberType<unsigned int> {
  using Small = unsigned int;
};
template <>
struct NumberType<float> {
  using Small = float;
};
template <>
struct NumberType<double> {
  using Small = double;
};
template <>
struct NumberType<long> {
  using Wide = long long;
};
template <>
struct NumberType<long long> {
  using Wide = long long;
};
template <>
struct NumberType<unsigned long> {
  using Wide = unsigned long long;
};
template <>
struct NumberType<unsigned long long> {
  using Wide = unsigned long long;
};

/// The decimal digits of a 64-bit number.
class Decimal {
 public:
  explicit Decimal(unsigned long long value) noexcept { print(value); }
  explicit Decimal(long long value) noexcept {
    auto const bits = static_cast<unsigned long long>(value);
    print(value < 0 ? 0 - bits : bits);
    if (value < 0) text_[--begin_] = '-';
  }

  char const* begin() const noexcept { return text_ + begin_; }
  int bytes() const noexcept { return kRoom - begin_; }

 private:
  static constexpr int kRoom = 20;  // -2^63 has 20 bytes

  void print(unsigned long long value) noexcept {
    do {
      text_[--begin_] = static_cast<char>('0' + value % 10);
      value /= 10;
    } while (value != 0);
  }

  int begin_ = kRoom;
  char text_[kRoom];
};

}  // namespace ATR_HEADER_VERSION
}  // namespace detail
}  // namespace atr

#endif  // ATR_STRINGS_STRING_ARGUMENTS_H
