#include <atr/atr.h>

#include <cstdio>

int main() {
  int starts = 0;
  atr_initialize(starts);
  atr_tr_enable(true);  // reads the dictionary that the environment names

  atr_translate message("%d of %d files copied to %s");
  atr_SubstituteFormat(message, 1, 3);
  atr_SubstituteFormat(message, 2, 10);
  atr_SubstituteFormat(message, 3, "/media/backup");
  std::puts(message.Result().c_str());
  std::puts(atr_raw("Open\\@menu").c_str());   // one English word
  std::puts(atr_raw("Open\\@state").c_str());  // with two meanings

  atr_finalize(starts);
}
