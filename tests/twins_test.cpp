// The twins over their small worlds, over seeded random bytes, and over the corpora of the fuzz
// targets, in locales of one and of several bytes a character.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "support/support.h"

using namespace test;

// Every text of up to `longest` of the given bytes.
void forEachText(S const& alphabet, int longest, auto const& visit, S const& text = "") {
  visit(text);
  for (char const c : longest > 0 ? alphabet : "")
    forEachText(alphabet, longest - 1, visit, text + c);
}

// Names a twin in test listings. The library looks for it beside the type.
namespace test {
static void PrintTo(Twin const& twin, std::ostream* out) { *out << twin.name; }
}  // namespace test

class Twins : public testing::TestWithParam<Twin> {};

TEST_P(Twins, Agree) {
  auto const& [name, run, alphabet, longest] = GetParam();
  auto const check = [run = run](S const& bytes) {  // in a block of its size, for the sanitizer
    std::vector<char> const exact(bytes.begin(), bytes.end());
    ASSERT_NO_THROW(run({exact.data(), exact.size()})) << bytes;
  };
  for (char const* const locale : {"C", ATR_TEST_LATIN1, ATR_TEST_SJIS, ATR_TEST_ASCII_LETTERS}) {
    Locale const set(locale);
    forEachText(alphabet, longest, check);
    std::mt19937 random(1);
    for (int i = 0; i < 2000; ++i) {
      S bytes(random() % 200, ' '), some = i % 2 == 0 ? alphabet : "";
      for (char& c : bytes)
        c = some.empty() ? static_cast<char>(random()) : some[random() % some.size()];
      check(bytes);
    }
    for (auto const& entry : std::filesystem::directory_iterator(ATR_TEST_CORPUS + S(name))) {
      std::ifstream file(entry.path(), std::ios::binary);
      check(S(std::istreambuf_iterator<char>(file), {}));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(, Twins, testing::ValuesIn(kTwins),
                         [](auto const& twin) { return twin.param.name; });
