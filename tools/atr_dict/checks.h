// The checks of a dictionary, each of which adds to the findings.
#ifndef ATR_TOOLS_ATR_DICT_CHECKS_H
#define ATR_TOOLS_ATR_DICT_CHECKS_H

#include "findings.h"

namespace dict {

/// The lines as lines: what is cut, left out, no entry, or an entry against its look.
void checkLines(Findings& findings);

/// Each stored entry's bytes: escapes, blanks, punctuation, line breaks, tail.
void checkTexts(Findings& findings);

/// The conversions of each stored entry's text beside those of its key.
void checkConversions(Findings& findings);

/// Entries beside each other: keys that come twice or nearly so.
void checkKeys(Findings& findings);

/// The rule of the plural forms, and the forms that it asks for.
void checkPlurals(Findings& findings);

/// The characters of keys and texts that a charset lacks, each once. @throw Failure if the system
/// does not know the charset.
void checkCharset(Findings& findings, std::string const& charset);

/// The dictionary's keys beside those that are asked for.
void checkAsked(Findings& findings, std::vector<std::string> const& asked);

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_CHECKS_H
