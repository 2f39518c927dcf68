// Which dictionary, which locale, and does a known message come out translated?
#include <atr/atr.h>

#include <clocale>
#include <cstdio>

int main() {
  atr_String path("none");
  bool const isFound = atr_setlocale(&path);
  std::printf("dictionary: %s\n", path.c_str());
  std::printf("locale: %s\n", std::setlocale(LC_CTYPE, nullptr));
  if (!isFound) return 0;

  atr_trBuildDB();
  std::printf("Open: %s\n", atr_raw("Open").c_str());
  atr_trReleaseDB();
}
