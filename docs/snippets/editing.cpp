// Edits of a text. All positions and counts are bytes.
#include <atr/atr.h>

#include <cstdio>

namespace {

constexpr int kAll = 0x7fffffff;  // all that there is

void print(atr_String const& s) { std::printf("[%s]\n", s.c_str()); }

}  // namespace

int main() {
  atr_String path("/home");
  path.Append("/anna").Append("/novel.txt");
  print(path);

  int const dot = path.rfind(".", 1, kAll);
  print(path.Substr(static_cast<std::size_t>(dot), kAll));
  print(path.extract(2, '/'));  // fields count from 0; the one before the first slash is empty

  path.replace(dot, kAll, ".bak", 4, 0, kAll);
  path.insert(0, "C:", 2, 0, kAll);
  path.Erase(2, 5);
  print(path);
  if (path.Find("home", 0) == static_cast<int>(path.length())) std::puts("no home in it");

  print(atr_String("  both ends  ").LeftTrim(" ").RightTrim(" "));
  print(atr_String("  every one  ").Trim(" "));
  print(atr_String("anna").Capitalize());
  print(atr_String("log ") + atr_String(42));
}
