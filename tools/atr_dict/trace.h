// What a recorded program leaves behind: fields that each end in a NUL. The first field of a record
// is its kind, which tells how many follow.
#ifndef ATR_TOOLS_ATR_DICT_TRACE_H
#define ATR_TOOLS_ATR_DICT_TRACE_H

namespace dict::trace {

/// Names the file that all processes of a run append to.
constexpr char kFile[] = "ATR_DICT_TRACE";

/// A process has begun. No fields.
constexpr char kStart[] = "start";

/// The table is built: a number, the working folder, and for each of kVariables its value behind a
/// `=`, or an empty field if it is not set.
constexpr char kBuild[] = "build";

/// A key is asked for: the number of the build in force, 0 for none, and the key.
constexpr char kKey[] = "key";

/// What the library chooses a dictionary by.
constexpr char const* kVariables[] = {"ZELTRA_SUPPORTED_LOCALE", "ZELTRA_TRANSLATION_DICTIONARY",
                                      "ZEL_PATH", "QMR_DICT_DIR"};

}  // namespace dict::trace

#endif  // ATR_TOOLS_ATR_DICT_TRACE_H
