// Names as a person would sort them.
#include <atr/atr.h>

#include <algorithm>
#include <cstdio>
#include <iterator>

int main() {
  int starts = 0;
  atr_initialize(starts);

  char const* names[] = {"file10", "file9", "v1.10", "v1.05", "v1.5", "Zoo", "apple"};
  if (atr_getNaturalOrder() != 0) {  // the user's choice; sorting by it is up to the program
    std::sort(std::begin(names), std::end(names),
              [](char const* a, char const* b) { return strnatcmp(a, b) < 0; });
  }
  for (char const* const name : names) std::printf("%s\n", name);

  atr_finalize(starts);
}
