// One percent sign is written as two, in the program and in the dictionary.
#include <atr/atr.h>

#include <cstdio>

namespace {

void print(char const* key) {
  atr_translate message(key);
  atr_SubstituteFormat(message, 1, 25);
  std::printf("%s\n", message.Result().c_str());
}

}  // namespace

int main() {
  print("%d%% done");
  print("%d% done");         // the lone sign is lost
  print("100% of %d");       // and so is what looks like a conversion
  print("%d#%i#%+d#%5.1q");  // so are conversions that the library does not know

  atr_translate message("Name: %s");
  atr_SubstituteFormat(message, 1, "100%d");  // values are not read again
  std::printf("%s\n", message.Result().c_str());

  std::printf("%s\n", atr_raw("100%% done").c_str());  // not formatted: both signs stay
}
