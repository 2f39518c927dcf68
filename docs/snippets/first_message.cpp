#include <atr/atr.h>

#include <cstdio>

int main() {
  int starts = 0;
  atr_initialize(starts);
  atr_tr_enable(true);  // without a dictionary every message is its own text

  atr_translate message("%d files copied to %s");
  atr_SubstituteFormat(message, 1, 12);
  atr_SubstituteFormat(message, 2, "/media/backup");
  atr_String const text = message.Result();
  std::printf("%s\n", text.c_str());

  std::printf("%s\n", atr_raw("Done").c_str());

  atr_finalize(starts);
}
