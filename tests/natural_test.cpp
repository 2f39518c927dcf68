// Natural order, and the flag beside it.
#include "atr/atr.h"
#include "support/support.h"

using namespace test;

TEST(Natural, Rows) {
  char const* const rising[][12] = {
      {"A", "a b", "a b01", "a b1", "a b9", "a b10", "a b100", "file2", "file10", "file10a", "x12y",
       "x12z"},
      {"\xE9", "", "0", "00", "0100", "01000", "0999", "1.05", "1.5", "9", "99",
       "100"},  // a start with 0 is a fraction
      {"123", "124", "1234", "a", "a  b", "a b", "a001", "a01", "a1", "abc\xE9", "abc", "abcd"}};
  for (auto const& row : rising) {
    for (auto const& a : row) {
      for (auto const& b : row) EXPECT_EQ(strnatcmp(a, b), (&a > &b) - (&a < &b)) << a << ' ' << b;
    }
  }
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
