// Copies share; the first write ends it.
#include <atr/atr.h>

#include <cstdio>
#include <utility>

namespace {

void compare(atr_String const& a, atr_String const& b) {
  std::printf("%s, %s: %s\n", a.c_str(), b.c_str(), a.c_str() == b.c_str() ? "shared" : "apart");
}

}  // namespace

int main() {
  atr_String a("text");
  atr_String b = a;
  compare(a, b);
  b.ToUpper();
  compare(a, b);

  atr_String const c = a;
  compare(a, c);
  char const read = c[0];  // of a constant: reads
  compare(a, c);
  a[0] = read;  // of a variable: makes it sole owner first, even just to read
  compare(a, c);

  atr_String const d = std::move(a);  // moved: `a` is empty now
  std::printf("%s, %d bytes\n", d.c_str(), static_cast<int>(a.length()));
}
