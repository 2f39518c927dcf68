#include <atr/atr.h>
#include <atr/message.h>

#include <iostream>
#include <string>

int main() {
  atr::Library const library;
  atr::Translation const translation;
  if (!translation) std::cout << "no dictionary\n";

  std::string const target = "/media/backup";
  std::cout << atr::message("%d of %d files copied to %s", 3, 10, target) << '\n';
  std::cout << atr::message(ATR_T("%d of %d files copied to %s"), 3, 10, target) << '\n';
}
