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

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_CHECKS_H
