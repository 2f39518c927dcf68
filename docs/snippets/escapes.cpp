// What the escapes of a dictionary stand for, in hexadecimal.
#include <atr/atr.h>

#include <cstdio>

int main() {
  int starts = 0;
  atr_initialize(starts);
  atr_tr_enable(true);
  char const* const keys[] = {"names", "octal", "hex", "none", "a\tkey"};
  for (char const* const key : keys) {
    atr_String const text = atr_raw(key);
    std::printf("%s:", key);
    for (char const* p = text.c_str(); *p != '\0'; ++p) std::printf(" %02X", *p);
    std::printf("\n");
  }
  atr_finalize(starts);
}
