// Texts that are not copied on the way in.
#include <atr/atr.h>

#include <cstdio>
#include <cstring>
#include <new>

int main() {
  static char const kTable[] = "a long text that stands in the program";
  int const length = static_cast<int>(sizeof kTable) - 1;
  atr_String borrowed(kTable, length, atr_String::BorrowText);
  std::printf("%s\n", borrowed.c_str() == kTable ? "in its place" : "copied");
  borrowed.Append("!");  // copies first
  std::printf("%s\n", borrowed.c_str() == kTable ? "in its place" : "copied");

  auto* const block = static_cast<char*>(::operator new(6));
  std::memcpy(block, "given", 6);
  atr_String const adopted(block, 5, atr_String::AdoptBlock);  // frees the block by itself
  std::printf("%s\n", adopted.c_str() == block ? "in its place" : "copied");
}
