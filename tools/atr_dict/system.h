// What the tool asks of the system. Where the platforms differ, system_posix.cpp and
// system_windows.cpp define the names in their order, one call or one fact each.
#ifndef ATR_TOOLS_ATR_DICT_SYSTEM_H
#define ATR_TOOLS_ATR_DICT_SYSTEM_H

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace dict::system {

/// The folder that the running program stands in, or "." if the system does not tell.
std::string programFolder();

/// Sets a variable of the process environment; a null value removes it.
void setVariable(char const* name, char const* value);

/// Two letters for the language of the user's surface where the environment tells nothing.
std::string userLanguage();

bool isTerminal(std::FILE* stream);

/// A write to a closed pipe fails from now on, instead of ending the process.
void ignoreClosedPipes();

/// Bytes go out as they are written, without line ends being changed.
void writeBytes(std::FILE* stream);

/// The name of the codeset of LC_CTYPE.
std::string codeset();

/// The system's words for a number as in errno.
std::string reasonOf(int error);

/// Why a path does not open as a regular file, in the system's words.
std::string whyNotOpened(char const* path);

/// What whyNotOpened answers for a path that does not exist.
std::string absence();

/// A charset that texts can be tried in.
class Charset {
 public:
  virtual ~Charset() = default;
  /// True if the charset has the character, which is one of UTF-8.
  virtual bool has(std::string_view character) = 0;
};

/// The charset of that name, or null if the system does not know it.
std::unique_ptr<Charset> openCharset(std::string const& name);

}  // namespace dict::system

#endif  // ATR_TOOLS_ATR_DICT_SYSTEM_H
