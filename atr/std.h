// The standard library's habits, for programs that want them: strings compare, hash, print and
// convert like a std::string. Guards start and stop the library and the translation.
#ifndef ATR_STD_H
#define ATR_STD_H

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <type_traits>

#include "atr/frame/export.h"
#include "atr/frame/lifecycle.h"
#include "atr/strings/string.h"
#include "atr/translation/translation.h"

#if defined(__cpp_impl_three_way_comparison) && __has_include(<compare>)
#include <compare>
#endif
#if __cplusplus >= 202002L && __has_include(<format>)
#include <format>
#endif

namespace atr {

namespace detail {
inline namespace ATR_HEADER_VERSION {

template <class Traits>
struct StandardText<std::basic_string_view<char, Traits>> {
  static constexpr bool kKnown = true;
};
template <class Traits, class Allocator>
struct StandardText<std::basic_string<char, Traits, Allocator>> {
  static constexpr bool kKnown = true;
};

template <class T>
inline constexpr bool kIsPublicString = std::is_base_of_v<atr_String, T>;
template <class T>
inline constexpr bool kIsComparable = kIsPublicString<T> ||
                                      (std::is_convertible_v<T const&, std::string_view> &&
                                       !std::is_same_v<T, std::nullptr_t>);
// One side has to be a string of ours, or the operators would take part in every comparison.
template <class Left, class Right>
using IfComparable =
    EnableIf<(kIsPublicString<Left> || kIsPublicString<Right>)&&kIsComparable<Left> &&
             kIsComparable<Right>>;

template <class T>
std::string_view viewOf(T const& text) noexcept {
  if constexpr (kIsPublicString<T>) {
    return {text.c_str(), text.length()};
  } else if constexpr (std::is_convertible_v<T const&, char const*>) {
    char const* const bytes = text;
    return bytes != nullptr ? bytes : "";
  } else {
    return text;
  }
}

}  // namespace ATR_HEADER_VERSION
}  // namespace detail

inline namespace ATR_HEADER_VERSION {

/// Starts the library, and stops it at the end of the scope. Starts nest.
class Library {
 public:
  Library() { atr_initialize(starts_); }
  ~Library() { atr_finalize(starts_); }
  Library(Library const&) = delete;
  Library& operator=(Library const&) = delete;

 private:
  int starts_ = 0;
};

/// Reads the dictionary that the environment names, and releases it at the end of the scope. The
/// release is not counted and is for all modules of the process, so one object, in `main`, is
/// enough.
class Translation {
 public:
  Translation() : isFound_(atr_setlocale(nullptr)) { atr_tr_enable(true); }
  ~Translation() { atr_tr_enable(false); }
  Translation(Translation const&) = delete;
  Translation& operator=(Translation const&) = delete;

  /// True if a dictionary was found. Without one every message is its own text.
  explicit operator bool() const noexcept { return isFound_; }

 private:
  bool isFound_;
};

}  // namespace ATR_HEADER_VERSION
}  // namespace atr

// The operators stand in the global namespace, where those of a string are looked for.
inline namespace atr_operators {
inline namespace ATR_HEADER_VERSION {

/// Compares all bytes, as unsigned ones, of two strings, or of one and a text or a view. A null
/// text counts as empty.
template <class Left, class Right, atr::detail::IfComparable<Left, Right> = 0>
bool operator==(Left const& left, Right const& right) noexcept {
  return atr::detail::viewOf(left) == atr::detail::viewOf(right);
}
#ifdef __cpp_lib_three_way_comparison
/// Likewise.
template <class Left, class Right, atr::detail::IfComparable<Left, Right> = 0>
std::strong_ordering operator<=>(Left const& left, Right const& right) noexcept {
  return atr::detail::viewOf(left).compare(atr::detail::viewOf(right)) <=> 0;
}
#else
/// Likewise.
template <class Left, class Right, atr::detail::IfComparable<Left, Right> = 0>
bool operator!=(Left const& left, Right const& right) noexcept {
  return atr::detail::viewOf(left) != atr::detail::viewOf(right);
}
/// Likewise.
template <class Left, class Right, atr::detail::IfComparable<Left, Right> = 0>
bool operator<(Left const& left, Right const& right) noexcept {
  return atr::detail::viewOf(left) < atr::detail::viewOf(right);
}
/// Likewise.
template <class Left, class Right, atr::detail::IfComparable<Left, Right> = 0>
bool operator>(Left const& left, Right const& right) noexcept {
  return atr::detail::viewOf(left) > atr::detail::viewOf(right);
}
/// Likewise.
template <class Left, class Right, atr::detail::IfComparable<Left, Right> = 0>
bool operator<=(Left const& left, Right const& right) noexcept {
  return atr::detail::viewOf(left) <= atr::detail::viewOf(right);
}
/// Likewise.
template <class Left, class Right, atr::detail::IfComparable<Left, Right> = 0>
bool operator>=(Left const& left, Right const& right) noexcept {
  return atr::detail::viewOf(left) >= atr::detail::viewOf(right);
}
#endif

/// Writes all bytes, with the width and the fill of the stream.
template <class Traits>
std::basic_ostream<char, Traits>& operator<<(std::basic_ostream<char, Traits>& out,
                                             atr_String const& text) {
  return out << std::basic_string_view<char, Traits>(text.c_str(), text.length());
}

/// What {fmt} prints, from version 10 on; earlier ones use the conversion to a view.
inline std::string_view format_as(atr_String const& text) noexcept {
  return atr::detail::viewOf(text);
}

}  // namespace ATR_HEADER_VERSION
}  // namespace atr_operators

/// @cond Doxygen does not find the scope of a specialization.
/// The hash of the bytes, equal to that of a std::string_view of them.
template <>
struct std::hash<atr_String> {
  /// Takes all bytes. O(length).
  std::size_t operator()(atr_String const& text) const noexcept {
    return std::hash<std::string_view>()(atr::detail::viewOf(text));
  }
};

// libc++ has formatters from version 16 on, long before the macro that tells of them; in 16 with
// -fexperimental-library.
#if defined(__cpp_lib_format) ||                                                       \
    (__cplusplus >= 202002L && defined(_LIBCPP_VERSION) && _LIBCPP_VERSION >= 16000 && \
     !defined(_LIBCPP_HAS_NO_INCOMPLETE_FORMAT))
/// As a std::string_view, with fill, width and precision.
template <>
struct std::formatter<atr_String, char> : std::formatter<std::string_view, char> {
  template <class Context>
  auto format(atr_String const& text, Context& context) const {
    return std::formatter<std::string_view, char>::format(atr::detail::viewOf(text), context);
  }
};
#endif
/// @endcond

#endif  // ATR_STD_H
