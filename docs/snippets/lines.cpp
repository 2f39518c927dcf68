// What the reader makes of the lines of a dictionary.
#include <atr/atr.h>

#include <cstdio>

int main() {
  int starts = 0;
  atr_initialize(starts);
  atr_tr_enable(true);
  char const* const keys[] = {"plain",       "indented", "switched off", "twice",  "blank behind",
                              "note behind", "it's",     "double",       "spaced", "empty",
                              "no form",     "broken",   "last"};
  for (char const* const key : keys) std::printf("%s -> [%s]\n", key, atr_raw(key).c_str());
  atr_finalize(starts);
}
