#include <atr/atr.h>
#include <atr/plural.h>

#include <iostream>

int main() {
  atr::Library const library;
  atr::Translation const translation;
  for (int const n : {1, 3, 5, 21}) {
    std::cout << atr::plural(ATR_T("%d file in %s"), ATR_T("%d files in %s"), n, "novel") << '\n';
  }
}
