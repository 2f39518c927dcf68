// The program counts values, the translation orders conversions.
#include <atr/atr.h>

#include <cstdio>

namespace {

void print(char const* key) {
  atr_translate message(key);
  atr_SubstituteFormat(message, 1, 3);
  atr_SubstituteFormat(message, 2, "novel");
  std::printf("%s\n", message.Result().c_str());
}

}  // namespace

int main() {
  int starts = 0;
  atr_initialize(starts);
  atr_tr_enable(true);

  print("%d files in %s");
  print("%d of all files in %s");

  atr_translate gaps("%5$s before %2$s");  // the positions are 1 and 2, not 2 and 5
  atr_SubstituteFormat(gaps, 1, "the lower number");
  atr_SubstituteFormat(gaps, 2, "the higher number");
  std::printf("%s\n", gaps.Result().c_str());

  atr_translate mixed("%s %1$s %s");  // those without a number take 2 and 3
  atr_SubstituteFormat(mixed, 1, "one");
  atr_SubstituteFormat(mixed, 2, "two");
  atr_SubstituteFormat(mixed, 3, "three");
  std::printf("%s\n", mixed.Result().c_str());

  atr_finalize(starts);
}
