// Puts a value into a text that is not translated: replaces the first placeholder found.
#include <cstdio>

#include "atr/strings/string.h"
#include "atr/strings/working_string.h"

namespace {

// The placeholder as it stands in the text: %d, or %2$d with a position.
atr_StringBasePrv placeholder(int position, char letter) {
  char text[32];
  if (position == 0) {
    std::snprintf(text, sizeof text, "%%%c", letter);
  } else {
    std::snprintf(text, sizeof text, "%%%d$%c", position, letter);
  }
  return atr_StringBasePrv(text);
}

}  // namespace

atr_String& atr_String::ReplaceNonTranslated(int position, int value) {
  return Substitute(placeholder(position, 'd'), atr_String(value), 1);
}

atr_String& atr_String::ReplaceNonTranslated(int position, atr_StringBase const& value) {
  return Substitute(placeholder(position, 's'), value, 1);
}

atr_String& atr_String::ReplaceNonTranslated(int position, char const* value) {
  return ReplaceNonTranslated(position, atr_String(value));
}

atr_String& atr_String::ReplaceNonTranslated(char const* pattern, atr_StringBase const& value) {
  return Substitute(atr_String(pattern), value, 1);
}

atr_String& atr_String::ReplaceNonTranslated(char const* pattern, char const* value) {
  return ReplaceNonTranslated(pattern, atr_String(value));
}
