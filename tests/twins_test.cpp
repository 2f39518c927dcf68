// The twins over their small worlds, over seeded random bytes, and over the corpora of the fuzz
// targets, in locales of one and of several bytes a character.

#include "support/support.h"

using namespace test;

// Every text of up to `longest` of the given pieces.
void forEachText(std::vector<S> const& pieces, int longest, auto const& visit, S const& text = "") {
  visit(text);
  for (S const& piece : pieces)
    if (longest > 0) forEachText(pieces, longest - 1, visit, text + piece);
}

class Twins : public testing::TestWithParam<int> {};

TEST_P(Twins, Agree) {
  auto const& [name, run, pieces, longest] = kTwins[GetParam()];
  auto const check = [run = run](S const& bytes) {  // in a block of its size, for the sanitizer
    std::vector<char> const exact(bytes.begin(), bytes.end());
    ASSERT_NO_THROW(run({exact.data(), exact.size()})) << bytes;
  };
  for (char const* const locale :
       {"C", ATR_TEST_LATIN1, ATR_TEST_SJIS, ATR_TEST_EUCJP, ATR_TEST_ASCII_LETTERS}) {
    Locale const set(locale);
    forEachText(pieces, longest, check);
    std::mt19937 random(1);
    for (int i = 0; i < 2000; ++i) {
      S bytes;
      for (auto n = random() % 200; n > 0; --n)
        bytes += i % 2 == 0 && !pieces.empty() ? pieces[random() % pieces.size()]
                                               : S(1, static_cast<char>(random()));
      check(bytes);
    }
    for (auto const& entry : std::filesystem::directory_iterator(ATR_TEST_CORPUS + S(name))) {
      std::ifstream file(entry.path(), std::ios::binary);
      check(S(std::istreambuf_iterator<char>(file), {}));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(, Twins, testing::Range(0, 12),
                         [](auto const& twin) { return kTwins[twin.param].name; });
