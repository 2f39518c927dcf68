// Translation of messages: the environment selects a locale and a dictionary, a build loads the
// dictionary into a table, and lookups find their texts in it.
//
// There are no locks. Lookups may run in many threads at once. A build or a release must run alone:
// no lookup and no other build or release at the same time. A build also changes the locale and the
// environment of the process.
#ifndef ATR_TRANSLATION_TRANSLATION_H
#define ATR_TRANSLATION_TRANSLATION_H

#include "atr/frame/export.h"
#include "atr/strings/string.h"

/// Sets the process locale as the environment asks, publishes its name as ZLT_LC_ALL, and looks for
/// the dictionary on the search path of QMR_DICT_DIR and ZEL_PATH. With ZELTRA_SUPPORTED_LOCALE and
/// ZELTRA_TRANSLATION_DICTIONARY both present, LC_CTYPE follows ZELTRA_LANG and the dictionary is
/// the one named; otherwise the locale stays, and the dictionary is the default one.
/// @param path receives the full name of the file that was found; may be null.
/// @return true if there is a dictionary; on false `path` is unchanged.
ATR_API bool atr_setlocale(atr_StringBase* path);

/// Fills the translation table from the dictionary that atr_setlocale finds. Does nothing if this
/// was done, or tried without success, since the last release. An entry that is no UTF-8 is left
/// out, with a warning on the standard error stream.
ATR_API void atr_trBuildDB();

/// Releases the table. From then on every message shows its own text.
ATR_API void atr_trReleaseDB();

/// Builds (true) or releases (false) the table. Off and on again reloads it.
ATR_API void atr_tr_enable(bool on);

/// The text of a message, without substitution: its translation, in the encoding that the locale
/// had at the build. A key without a translation is its own text: up to a tail that begins with
/// `\@`, converted to the encoding of the locale, with `?` for a character that does not exist
/// there. The null representation stands for a null key and for every empty text. O(bytes of the
/// key), times log(entries) where there was no memory for an index; allocates only the result.
ATR_API atr_String atr_raw(char const* key);

#endif  // ATR_TRANSLATION_TRANSLATION_H
