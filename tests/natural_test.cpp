// Natural order.
#include "support/support.h"

using namespace test;

TEST(Natural, Rows) {
  char const* const rising[][12] = {
      // in the second row: a start with 0 is a fraction
      {"A", "a b", "a b01", "a b1", "a b9", "a b10", "a b100", "file2", "file10", "file10a", "x12y",
       "x12z"},
      {"\xE9", "", "0", "00", "0100", "01000", "0999", "1.05", "1.5", "9", "99", "100"},
      {"123", "124", "1234", "a", "a  b", "a b", "a001", "a01", "a1", "abc\xE9", "abc", "abcd"},
  };
  for (auto const& row : rising)
    for (auto const& a : row)
      for (auto const& b : row) EXPECT_EQ(strnatcmp(a, b), (&a > &b) - (&a < &b)) << a << ' ' << b;
}
