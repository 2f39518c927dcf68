// Room first, then bytes written in place.
#include <atr/atr.h>

#include <cstdio>

int main() {
  atr_String line(80, atr_String::PreSize);  // room for 80 bytes and the NUL
  int const bytes = std::snprintf(&line[0], 81, "%d bottles", 99);
  line.SetStringLength(bytes);
  std::printf("%s, %d bytes\n", line.c_str(), static_cast<int>(line.length()));

  line.isolate(1000);  // more room; the text stays
  char* const out = &line[0];
  for (int i = bytes; i < 1000; ++i) out[i] = '.';
  out[1000] = '\0';
  line.SetStringLength(1000);
  std::printf("%.13s, %d bytes\n", line.c_str(), static_cast<int>(line.length()));
}
