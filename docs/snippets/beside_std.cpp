#include <atr/atr.h>
#include <atr/std.h>

#include <cstddef>
#include <iostream>
#include <string>
#include <string_view>
#include <unordered_map>

namespace {

void compare() {
  atr_String const name("chapter9.txt");
  std::string const other = "chapter10.txt";
  std::cout << (name == "chapter9.txt" ? "same" : "different") << '\n';
  std::cout << (name < other ? "before" : "behind") << '\n';  // by bytes, not naturally
  std::cout << (strnatcmp(name.c_str(), other.c_str()) < 0 ? "before" : "behind") << '\n';

  int const dot = name.Find(".", 0);  // an int; where nothing is found, the length
  bool const hasDot = static_cast<std::size_t>(dot) != name.length();
  std::cout << (hasDot ? name.Substr(dot, atr_String::kAll) : atr_String()) << '\n';
}

void convert() {
  std::string standard = "from std::string";
  atr_String text = standard;      // copies
  std::string_view view = text;    // borrows, until `text` next changes
  std::string const back = text;   // copies
  atr_String const shared = text;  // shares: one increment
  std::cout << view << ", " << back.size() << " bytes, "
            << (shared.c_str() == text.c_str() ? "shared" : "apart") << '\n';
}

void contain() {
  std::unordered_map<atr_String, int> counts;
  for (char const* word : {"one", "two", "one"}) ++counts[word];
  for (char const byte : atr_String("range")) std::cout << byte << ' ';
  std::cout << counts["one"] << '\n';
}

void count() {
  std::string_view const prefix = "draft of ";
  atr_String title("draft of a novel");
  title.Erase(0, prefix.size());  // any integer is a position or a count
  title[title.length() - 1] = 'L';
  std::cout << title << ' ' << atr_String(title.length()) << '\n';
}

}  // namespace

int main() {
  compare();
  convert();
  contain();
  count();
}
