// Prints a double as %g of printf does.
#ifndef ATR_STRINGS_GENERAL_FORM_H
#define ATR_STRINGS_GENERAL_FORM_H

namespace atr {

/// Prints `value` as `%.*g` does with `precision`, from 1 to 15, but with a point in every locale.
/// @param out has 24 bytes.
/// @return where the text ends; no NUL is written.
char* printGeneral(char* out, double value, int precision) noexcept;

/// The same by the exact digits of the value: the plain form, which takes twice as long.
char* printGeneralExactly(char* out, double value, int precision) noexcept;

}  // namespace atr

#endif  // ATR_STRINGS_GENERAL_FORM_H
