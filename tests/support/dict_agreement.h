// Holds what atr-dict says of a dictionary to what the library makes of it.
#ifndef ATR_TESTS_SUPPORT_DICT_AGREEMENT_H
#define ATR_TESTS_SUPPORT_DICT_AGREEMENT_H

#include <string>
#include <string_view>

namespace test {

/// Reads a dictionary of these bytes by the tool and by the library, in the locale in force, and
/// looks every key up. @return what differs, or an empty text.
std::string disagreement(std::string_view bytes);

/// The same for the form that `fmt` gives the dictionary, beside the dictionary itself.
std::string formattedDisagreement(std::string_view bytes);

}  // namespace test

#endif  // ATR_TESTS_SUPPORT_DICT_AGREEMENT_H
