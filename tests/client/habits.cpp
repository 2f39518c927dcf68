// A client that uses strings and messages like those of the standard library. It has to compile
// without a warning with every compiler and standard, and exits with 1 if a row does not hold.
#include <atr/plural.h>

#include <cstdio>
#include <functional>
#include <iomanip>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#ifdef WITH_FMT
#include <fmt/format.h>
#endif
#ifdef WITH_STD_FORMAT
#include <format>
#endif

atr_String secondPart();

namespace {

int failures = 0;

void expect(char const* what, std::string_view actual, std::string_view expected) {
  if (actual == expected) return;
  ++failures;
  std::printf("%s: [%s], not [%s]\n", what, std::string(actual).c_str(),
              std::string(expected).c_str());
}

void expect(char const* what, bool holds) { expect(what, holds ? "yes" : "no", "yes"); }

// One order for each pair of kinds, in both directions.
template <class Less, class Greater>
void expectOrder(char const* what, Less const& less, Greater const& greater) {
  bool const forth = less < greater && less <= greater && less != greater && !(less == greater) &&
                     !(less > greater) && !(less >= greater);
  bool const back = greater > less && greater >= less && greater != less && !(greater == less) &&
                    !(greater < less) && !(greater <= less);
  expect(what, forth && back);
}

template <class Left, class Right>
void expectEqual(char const* what, Left const& left, Right const& right) {
  expect(what, left == right && right == left && left <= right && left >= right &&
                   !(left != right) && !(left < right) && !(left > right));
}

void compare() {
  atr_String const text("abc");
  char const array[] = "abc";
  expectEqual("string and string", text, atr_String("abc"));
  expectEqual("string and text", text, static_cast<char const*>(array));
  expectEqual("string and array", text, array);
  expectEqual("string and view", text, std::string_view("abc"));
  expectEqual("string and std::string", text, std::string("abc"));
  expectEqual("null representation and empty text", atr_String(), "");
  expectEqual("null text counts as empty", atr_String(), static_cast<char const*>(nullptr));
  expectOrder("a prefix comes first", text, "abcd");
  expectOrder("bytes are unsigned", "abc", atr_String("\xff"));
  expectOrder("views too", text, std::string_view("b"));
  expectOrder("bytes behind a NUL count", atr_String("a\0b", 3), std::string("a\0c", 3));
  expectOrder("a text ends at its NUL", "a", atr_String("a\0b", 3));
}

void convert() {
  std::string const given("x\0y", 3);
  atr_String text = given;
  std::string back = text;
  std::string_view const view = text;
  expect("there and back with a NUL", back, given);
  expect("a view", view, given);
  back = atr_String("assigned");
  expect("assignment to a std::string", back, "assigned");
  text = std::string_view("viewed").substr(0, 4);
  expect("assignment of a view", text, "view");
  text = std::string();
  expect("an empty std::string allocates nothing", text.c_str() == atr_emptyText);
  expect("direct initialisation", std::string(atr_String("direct")) + "!", "direct!");
  auto const takesView = [](std::string_view taken) { return taken.size(); };
  expect("as an argument", takesView(atr_String("four")) == 4);
  std::string collected;
  for (char const byte : atr_String("range")) collected += byte;
  expect("a range", collected, "range");
}

void containAndPrint() {
  std::unordered_map<atr_String, int> counts;
  ++counts["key"];
  ++counts[atr_String("key")];
  expect("a key of an unordered map", counts.at("key") == 2);
  expect("hash as of a view",
         std::hash<atr_String>()("key") == std::hash<std::string_view>()("key"));
  std::map<atr_String, int, std::less<>> const sorted = {{"b", 2}, {"a", 1}};
  expect("found in a map by a view", sorted.find(std::string_view("a"))->second == 1);

  std::ostringstream out;
  out << std::setw(6) << std::setfill('.') << atr_String("text") << atr_String("a\0b", 3);
  expect("a stream, with width", out.str(), std::string("..texta\0b", 9));
#ifdef WITH_FMT
  expect("fmt", fmt::format("[{:>5}|{:.2}|{}]", atr_String("abc"), atr_String("abc"), atr_String()),
         "[  abc|ab|]");
#endif
#ifdef WITH_STD_FORMAT
  expect("format",
         std::format("[{:>5}|{:.2}|{}]", atr_String("abc"), atr_String("abc"), atr_String()),
         "[  abc|ab|]");
#endif
}

void count() {
  std::vector<int> const sizes(2);
  atr_String text("0123456789");
  text.Erase(text.length() - 1, 1);
  text.insert(sizes.size(), "abc", std::string_view("abc").size(), 0, atr_String::kAll);
  expect("counts of any type", text, "01abc2345678");
  text.Erase(4, ~std::size_t{0});
  expect("a count that no int has", text, "01ab");
  atr_String const fixed("text");
  expect("a position that no int has", fixed[0xFFFFFFFF00000001ULL] == '\0');
  text[text.length() - 1] = 'B';
  expect("a length as index", text, "01aB");
  expect("Find gives an int", text.Substr(text.Find("a", 0), atr_String::kAll), "aB");
  expect("a length with a text", atr_String("text", sizes.size()), "te");

  atr_String const a("a");
  expect("string for text", atr_String("aa").Substitute(a, "b", 1), "ba");
  expect("text for string", atr_String("bb").Substitute("b", a, sizes.size()), "aa");
}

void number() {
  expect("int", atr_String(-1), "-1");
  expect("unsigned", atr_String(4000000000U), "4000000000");
  expect("short", atr_String(static_cast<short>(-7)), "-7");
  expect("long", atr_String(-5L), "-5");
  expect("unsigned long", atr_String(5UL), "5");
  expect("long long", atr_String(-9223372036854775807LL - 1), "-9223372036854775808");
  expect("unsigned long long", atr_String(18446744073709551615ULL), "18446744073709551615");
  expect("zero", atr_String(0LL), "0");
  expect("float", atr_String(0.1F), "0.1");
  expect("double", atr_String(0.5), "0.5");
}

void say() {
  std::string const standard("standard");
  int const object = 0;
  expect("values of every kind",
         atr::message("%d %u %ld %c %.1f %g %s %s %s %s|%-5s|", -1, 2U, 3LL, 'c', 1.25, 0.5F,
                      "text", atr_String("ours"), standard, std::string_view("views", 4), nullptr),
         "-1 2 3 c 1.2 0.5 text ours standard view|     |");
  expect("checked", atr::message(ATR_T("%2$s: %1$d%%\\@50% is no matter here"), 7, standard),
         "standard: 7%");
  expect("a pointer", atr::message(ATR_T("%x"), &object) == atr::message("%x", &object));
  expect("no value", atr::message(ATR_T("100%%")), "100%");
  atr_translate message("%s, %s");
  atr_SubstituteFormat(message, 1, standard);
  atr_SubstituteFormat(message, 2, std::string_view("views", 4));
  expect("written out", message.Result(), "standard, view");
  expect("plural without a rule", atr::plural("%d file in %s", "%d files in %s", 0, standard),
         "0 files in standard");
  expect("by the magnitude", atr::plural(ATR_T("%d file"), ATR_T("%d files"), -1LL), "-1 file");
  expect("two parts of one program", secondPart(), "2 parts");
  expect("a checked text for others", atr_raw(ATR_T("Done\\@state")), "Done");
}

}  // namespace

int main() {
  atr::Library const library;
  atr::Translation const translation;
  expect("no dictionary", !translation);
  compare();
  convert();
  containAndPrint();
  count();
  number();
  say();
  return failures == 0 ? 0 : 1;
}
