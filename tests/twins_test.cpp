// The twins over their small worlds, over seeded random bytes, and over the corpora of the fuzz
// targets, in locales of one and of several bytes a character.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "support/support.h"
#include "support/twins.h"

using namespace test;

class Twins : public testing::TestWithParam<Twin> {};

TEST_P(Twins, Agree) {
  auto const& [name, run, alphabet, longest] = GetParam();
  for (char const* const locale : {"C", ATR_TEST_LATIN1, ATR_TEST_SJIS, ATR_TEST_ASCII_LETTERS}) {
    Locale const set(locale);
    forEachText(alphabet, static_cast<std::size_t>(longest),
                [run = run](char const* p, char const* end) {
                  ASSERT_NO_THROW(run({p, static_cast<std::size_t>(end - p)}));
                });
    std::mt19937 random(1);
    for (int i = 0; i < 2000; ++i) {
      std::string bytes(random() % 200, ' ');
      std::string_view const some = i % 2 == 0 ? alphabet : "";
      for (char& c : bytes)
        c = some.empty() ? static_cast<char>(random()) : some[random() % some.size()];
      ASSERT_NO_THROW(run(bytes)) << i;
    }
    for (auto const& entry :
         std::filesystem::directory_iterator(ATR_TEST_CORPUS + std::string(name))) {
      std::ifstream file(entry.path(), std::ios::binary);
      ASSERT_NO_THROW(run(std::string(std::istreambuf_iterator<char>(file), {}))) << entry.path();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(, Twins, testing::ValuesIn(kTwins),
                         [](auto const& twin) { return twin.param.name; });
