// Translation of messages: the environment selects a locale and a dictionary, a build loads it, and
// lookups find their texts in it.
//
// There are no locks. No lookup overlaps a build or a release, and these come from one thread at a
// time; a build changes the process locale and environment too. Lookups may run side by side.
#ifndef ATR_TRANSLATION_TRANSLATION_H
#define ATR_TRANSLATION_TRANSLATION_H

#include "atr/frame/export.h"
#include "atr/strings/string.h"

/// Sets the process locale as the environment asks, publishes its name as ZLT_LC_ALL, and looks for
/// the dictionary on the search path of QMR_DICT_DIR and ZEL_PATH. With ZELTRA_SUPPORTED_LOCALE and
/// ZELTRA_TRANSLATION_DICTIONARY both present, LC_CTYPE follows ZELTRA_LANG and the dictionary is
/// the one named; otherwise the locale stays, and the dictionary is the default one.
/// @param path takes the full name of the file that was found; may be null.
/// @return true if there is a dictionary; on false `path` is unchanged.
ATR_API bool atr_setlocale(atr_StringBase* path);

/// Fills the translation table from the dictionary that atr_setlocale finds. Does nothing if it is
/// filled, or was tried and got nothing, since the last release. Bad entries are warned about on
/// the standard error stream and left out.
ATR_API void atr_trBuildDB();

/// Gives the table back; from then on every message is its own text.
ATR_API void atr_trReleaseDB();

/// Builds (true) or releases (false) the table. Off and on again reloads it.
ATR_API void atr_tr_enable(bool on);

/// The text of a message, not formatted: its translation in the encoding of the locale at the
/// build, or the key itself without a tail from `\@` on, in the encoding of the locale, with `?`
/// for a character that has no form there. A null key, and any text that comes out empty, gives the
/// null representation. O(bytes of the key), times log(entries) where there was no memory for an
/// index; takes no memory but for the result.
ATR_API atr_String atr_raw(char const* key);

#endif  // ATR_TRANSLATION_TRANSLATION_H
