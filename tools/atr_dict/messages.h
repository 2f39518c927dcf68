// The tool's own messages, which go through the library. They come in the encoding of the locale.
#ifndef ATR_TOOLS_ATR_DICT_MESSAGES_H
#define ATR_TOOLS_ATR_DICT_MESSAGES_H

#include <string>
#include <string_view>

#include "atr/message.h"

namespace dict {

/// Takes the program's own dictionary for the user's language as the process's table, if there is
/// one. The environment is as before afterwards; LC_CTYPE follows the user.
void loadOwnMessages();

/// Takes the tool's own messages away for a while: the process is as it began, for the library to
/// start in it as it does in a caller's program.
class WithoutOwnMessages {
 public:
  WithoutOwnMessages();
  WithoutOwnMessages(WithoutOwnMessages const&) = delete;
  WithoutOwnMessages& operator=(WithoutOwnMessages const&) = delete;
  ~WithoutOwnMessages() { loadOwnMessages(); }
};

/// The message under `key` with its values, which are texts in the encoding of the locale or
/// numbers, in their places.
template <class... Values>
std::string say(char const* key, Values const&... values) {
  return std::string(atr::message(key, values...));
}

/// UTF-8 in the encoding of the locale, with `?` for what it does not have. Bytes that are no
/// UTF-8 and control characters come out as `?` too, so that a terminal is safe from them.
std::string toLocale(std::string_view utf8);

/// A text in the encoding of the locale as UTF-8.
std::string fromLocale(std::string const& text);

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_MESSAGES_H
