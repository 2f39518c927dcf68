#include <atr/atr.h>
#include <atr/plural.h>

#include <iostream>

int main() {
  atr::Library const library;
  atr::Translation const translation;  // reads the dictionary that the environment names

  std::cout << atr::message(ATR_T("%d of %d files copied to %s"), 3, 10, "/media/backup") << '\n';
  std::cout << atr::plural(ATR_T("%d file left"), ATR_T("%d files left"), 7) << '\n';
  std::cout << atr_raw("Open\\@menu") << '\n';   // one English word
  std::cout << atr_raw("Open\\@state") << '\n';  // with two meanings
}
