// Natural order, and the flag beside it.
#include "atr/atr.h"
#include "support/oracles.h"
#include "support/support.h"

using namespace test;

TEST(Natural, SmallWorld) {
  std::vector<std::string> texts;
  forEachText("0129a\xE9", 4, [&](char const* p, char const* end) { texts.emplace_back(p, end); });
  for (std::string const& a : texts) {
    for (std::string const& b : texts) {
      ASSERT_EQ(strnatcmp(a.c_str(), b.c_str()), naturalOrder(a, b)) << a << ' ' << b;
    }
  }
  for (std::size_t i = 0; i < 300000; ++i) {  // total, so that it serves any sort
    auto const &a = texts[i * 7919 % texts.size()], &b = texts[i * 104729 % texts.size()],
               &c = texts[i * 1299709 % texts.size()];
    if (naturalOrder(a, b) > 0 || naturalOrder(b, c) > 0) continue;
    ASSERT_LE(strnatcmp(a.c_str(), c.c_str()), 0) << a << ' ' << b << ' ' << c;
  }
}

TEST(Natural, Rows) {
  char const* const kRising[] = {"A",     "a b",    "a b01", "a b1",   "a b9",
                                 "a b10", "a b100", "file2", "file10", "file10a"};
  for (auto const& a : kRising) {
    for (auto const& b : kRising)
      EXPECT_EQ(strnatcmp(a, b), (&a > &b) - (&a < &b)) << a << ' ' << b;
  }
  EXPECT_EQ(strnatcmp("abc", "abc\xE9"), 1);
  std::string const digits(1'000'000, '7');
  EXPECT_EQ(strnatcmp((digits + "a").c_str(), (digits + "b").c_str()), -1)
      << "linear, or this takes minutes";
}

TEST(Natural, Flag) {
  auto const run = [](char const* value, int expected) {
    EXPECT_EQ(atr_getNaturalOrder(), 0);
    setVariable("ZLT_USE_NATURAL_ORDER_SORT", value);
    int count = 0;
    atr_initialize(count);
    EXPECT_EQ(atr_getNaturalOrder(), expected);
    atr_setNaturalOrder(7);
    atr_initialize(count);
    atr_finalize(count);
    EXPECT_EQ(atr_getNaturalOrder(), 7);
    atr_finalize(count);
    EXPECT_EQ(atr_getNaturalOrder(), 7);
    atr_initialize(count);
    EXPECT_EQ(atr_getNaturalOrder(), expected);
    atr_finalize(count);
  };
  EXPECT_FRESH("", run(nullptr, 1));
  EXPECT_FRESH("", run("1", 0));
}
