// A dictionary that changes while the program runs.
#include <atr/atr.h>

#include <cstdio>

namespace {

void writeDictionary(char const* text) {
  std::FILE* const file = std::fopen("reload.py", "w");
  std::fprintf(file, "msg['Hello'] = r'%s'\n", text);
  std::fclose(file);
}

void print() { std::printf("%s\n", atr_raw("Hello").c_str()); }

}  // namespace

int main() {
  int starts = 0;
  atr_initialize(starts);

  writeDictionary("Hallo");
  atr_tr_enable(true);
  print();

  writeDictionary("Bonjour");
  atr_tr_enable(true);  // built already: does nothing
  print();

  atr_tr_enable(false);
  print();
  atr_tr_enable(true);  // off and on again: the environment and the file are read anew
  print();

  atr_finalize(starts);
}
