// What crosses the edge of the shared library: exceptions, data, strings made on either side.
#include <gtest/gtest.h>

#include <climits>
#include <new>

#include "atr/atr.h"

TEST(Edge, Crossing) {
  EXPECT_THROW(atr_String(INT_MAX, atr_String::PreSize), std::bad_alloc);
  EXPECT_EQ(atr_String().c_str(), atr_emptyText);
  auto* const block = static_cast<char*>(::operator new(2));
  block[0] = 'a';
  block[1] = '\0';
  atr_String s(block, 1, atr_String::AdoptBlock);
  for (int i = 0; i < 300; ++i) s.Append("b");
  ::operator delete(s.get(1000));
  EXPECT_EQ((atr_String(2.5) + "x").extract(0, 'x').length(), 3U);
}
