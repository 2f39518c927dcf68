// What a text says after memory ran out.
#include <atr/atr.h>

#include <cstdio>
#include <new>

int main() {
  atr_String text("as it was");
  atr_String const shared = text;
  try {
    text.isolate(0x7fffffff);  // more than any string can have
  } catch (std::bad_alloc const&) {
    std::printf("%s, %s\n", text.c_str(), text.c_str() == shared.c_str() ? "shared" : "apart");
  }
}
