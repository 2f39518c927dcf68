// One English word with two meanings.
#include <atr/atr.h>

#include <cstdio>

int main() {
  int starts = 0;
  atr_initialize(starts);
  atr_tr_enable(true);

  std::printf("%s\n", atr_raw("Open\\@menu").c_str());  // the backslash is doubled in C++ only
  std::printf("%s\n", atr_raw("Open\\@state").c_str());
  std::printf("%s\n", atr_raw("Open\\@lock").c_str());  // not in the dictionary
  std::printf("%s\n", atr_raw("Open").c_str());

  atr_translate message("Open %s\\@title");  // works in messages too
  atr_SubstituteFormat(message, 1, "notes.txt");
  std::printf("%s\n", message.Result().c_str());

  atr_finalize(starts);
}
