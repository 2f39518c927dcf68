// Lines of at least so many bytes.
#include <atr/atr.h>

#include <cstdio>

int main() {
  atr_String const notice(
      "Move files that you no longer need to another disk.\nOr empty the trash.");
  std::printf("%s\n\n", atr_String::AddLineBreaks(notice, 16, false).c_str());
  std::printf("%s\n\n", atr_String::AddLineBreaks(notice, 16, true).c_str());  // has one: kept

  atr_String const word("no-white-space-no-break at all");
  std::printf("%s\n", atr_String::BreakLineString(word, 4).c_str());

  atr_String const folded = atr_String::AddLineBreaks(notice, 16, false);
  for (int i = 0; !folded.extract(i, '\n').IsEmpty(); ++i) {
    std::printf("%2d| %s\n", i, folded.extract(i, '\n').c_str());
  }
}
