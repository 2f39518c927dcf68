// Runs a twin on an input. A difference comes back as a report that is enough to repair from: the
// shortest input found, the locale, both results, and a command that repeats it.
#ifndef ATR_TESTS_SUPPORT_TWIN_REPORT_H
#define ATR_TESTS_SUPPORT_TWIN_REPORT_H

#include "support/twins.h"

namespace test {

/// The inside of a C++ literal with these bytes. It has no quotes of either kind, so that a shell
/// takes it between single ones.
S escaped(std::string_view bytes);

/// The bytes of such a literal.
S unescaped(std::string_view literal);

/// Runs the twin on the bytes, which lie in a block of their size for the sanitizer to watch.
/// @param origin tells where the bytes come from.
/// @param program the command that runs this twin.
/// @return nothing if the two agree, else the report.
std::optional<S> reportOf(Twin const& twin, std::string_view bytes, S const& origin,
                          S const& program);

/// Repeats what a report tells to: the input of ATR_TWIN_INPUT in the locale ATR_TWIN_LOCALE.
/// @return false if ATR_TWIN_INPUT is not set; `report` is as reportOf has it.
bool repeats(Twin const& twin, S const& program, std::optional<S>& report);

/// Changes the locale of the process. One that the machine lacks throws a line that says so.
void setLocale(char const* name);

}  // namespace test

#endif  // ATR_TESTS_SUPPORT_TWIN_REPORT_H
