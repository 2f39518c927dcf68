// Lines of at least so many bytes.
#include <atr/atr.h>

#include <cstdio>

int main() {
  atr_String const notice(
      "Move files that you no longer need to another disk.\n\nOr empty the trash.");
  std::printf("%s\n\n", atr_String::AddLineBreaks(notice, 16, false).c_str());
  std::printf("%s\n\n", atr_String::AddLineBreaks(notice, 16, true).c_str());  // has one: kept

  atr_String const word("no-white-space-no-break at all");
  std::printf("%s\n", atr_String::BreakLineString(word, 4).c_str());

  atr_String const folded = atr_String::AddLineBreaks(notice, 16, false);
  int const length = static_cast<int>(folded.length());
  for (int at = 0, line = 0; at < length; ++line) {
    int const end = folded.Find("\n", at);  // the length, if there is no newline left
    std::printf("%2d| %s\n", line, folded.Substr(at, end - at).c_str());
    at = end + 1;
  }
}
