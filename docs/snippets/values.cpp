// A value of every kind, and letters that do not suit it.
#include <atr/atr.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

namespace {

template <class Value>
void print(char const* key, Value value) {
  atr_translate message(key);
  atr_SubstituteFormat(message, 1, value);
  std::printf("%-8s %s\n", key, message.Result().c_str());
}

}  // namespace

int main() {
  print("[%d]", -42);
  print("[%6d]", -42);
  print("[%-6d]", -42);
  print("[%06d]", -42);
  print("[%.4d]", -42);
  print("[%u]", 4000000000U);
  print("[%x]", 255U);
  print("[%X]", 255U);
  print("[%o]", 8);
  print("[%c]", 'A');
  print("[%d]", std::int64_t{5000000000});
  print("[%ld]", 7);  // an `l` says nothing: the value's type does
  print("[%u]", sizeof(int));
  print("[%f]", 2.5);
  print("[%8.2f]", 2.5);
  print("[%e]", 150000.0);
  print("[%g]", 0.5F);
  print("[%s]", "text");
  print("[%8s]", "text");
  print("[%-8.3s]", "text");
  print("[%s]", atr_String("counted"));
  print("[%s]", std::string("standard").c_str());
  print("[%x]", reinterpret_cast<void const*>(std::uintptr_t{0xC0FFEE}));

  print("[%s]", 42);  // a number as a text: plain decimal, no width
  print("[%5s]", 42);
  print("[%.1f]", 42);    // an integer as a double, without the precision
  print("[%d]", 2.5);     // a double has no integer form: plain %e
  print("[%d]", "text");  // a text stays one
  print("[%d]", true);
  print("[%d]", 'A');
  print("[%s]", nullptr);

  atr_translate message("%s, %s and %s");
  atr_SubstituteFormat(message, 1, "one");
  atr_SubstituteFormat(message, 1, "uno");  // the last one counts
  atr_SubstituteFormat(message, 3, "three");
  atr_SubstituteFormat(message, 4, "nowhere");  // silent
  std::printf("%s\n", message.Result().c_str());
}
