// Every pass of Substitute looks from the start.
#include <atr/atr.h>

#include <cstdio>
#include <new>

int main() {
  atr_String path("a/b/c");
  std::printf("%s\n", path.Substitute("/", "::", 2).c_str());

  atr_String run("a////b");
  std::printf("%s\n", run.Substitute("//", "/", 0x7fffffff).c_str());

  atr_String copies("x");
  std::printf("%s\n", copies.Substitute("x", "xy", 3).c_str());  // one "x", replaced three times

  try {
    atr_String("x").Substitute("x", "xy", 0x7fffffff);
  } catch (std::bad_alloc const&) {
    std::puts("more than a string can hold");
  }
}
