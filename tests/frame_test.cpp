// Start and stop: the pools they make, the summary and the natural order that they switch.
#include <random>

#include "atr/strings/byte_filter.h"
#include "atr/strings/string_module.h"
#include "support/support.h"

using namespace test;

TEST(Frame, StartsNestAndReport) {
  auto const run = [](S const& variable, S const& expected) {
    setVariable("ATR_SUMMARY", variable);
    setVariable("ZLT_USE_NATURAL_ORDER_SORT", variable);
    int count = 5;
    S steps = picture(atr_getNaturalOrder(), "| ");
    for (char const step : "++--+-"s) {
      step == '+' ? atr_initialize(count) : atr_finalize(count);
      auto const [starts, stops, blocks] = mem_status();
      steps += picture(count, starts, stops, atr_repPool != nullptr, atr_bodyPool != nullptr,
                       atr_summary != nullptr, atr_getNaturalOrder(), "| ");
      setVariable("ATR_SUMMARY", "-");  // which the next start sees
      if (steps.size() > 24) continue;
      atr_setNaturalOrder(7);
      atr_String const a("0123456789"), share(a);  // 20 bytes, 10 of text
      atr_String b(S(300, 'x').c_str()), d("0123456789");
      atr_String const c("borrowed", 8, atr_String::BorrowText);
      b.Append(a);              // separate: a move, no extension failure
      d.isolate(40);            // old and new alive at once: 20 + 20 + 52
      d = S(100, 'y').c_str();  // not here: 52 gives way to 116
    }
    EXPECT_EQ(steps, expected);
  };
  EXPECT_FRESH("^$", run("-",
                         "0 | 6 1 0 1 1 0 1 | 6 1 0 1 1 0 7 | 6 1 0 1 1 0 7 | 5 1 1 0 0 0 7 | 6 2 "
                         "1 1 1 0 1 | 5 2 2 0 0 0 1 | "));
  EXPECT_FRESH(
      "^ +3 Reps Created\n +4 Strings Created\n +2 Extension Failures\n +0 Active\n"
      " +0 Bytes in use\n +5 Maximum active\n +136 Maximum bytes in use\n"
      " +32.5 Mean length\n +39.0 Sigma length\n +19.5 Mean spare\n +13.2 Sigma spare\n$",
      run("x",
          "0 | 6 1 0 1 1 1 0 | 6 1 0 1 1 1 7 | 6 1 0 1 1 1 7 | 5 1 1 0 0 0 7 | 6 2 1 1 1 0 0 | 5 2 "
          "2 0 0 0 0 | "));
}

TEST(Pool, Rows) {
  struct {
    int unitBytes, maxClass, slabBytes;
    std::size_t block;  // bytes of a slab as it is allocated
    int last;           // the highest class that fits into one
  } const rows[] = {
      {12, 0, 0, 4096, 0},      {32, 7, 16384, 16384, 7},
      {4, 20, 100, 400, 15},    {1000, 0, 0, 65536, 0},
      {5000, 15, 0, 65536, 12}, {INT_MAX, 15, INT_MAX, 65536, -1},
      {0, INT_MIN, -5, 400, 0}, {INT_MIN, INT_MAX, INT_MIN, 400, 15},
  };
  for (auto const& [unitBytes, maxClass, slabBytes, block, last] : rows) {
    SCOPED_TRACE(picture("a pool of", unitBytes, maxClass, slabBytes));
    atr_Allocator pool(unitBytes, maxClass, slabBytes);
    int const before = allocations().taken;
    for (int const c : {INT_MIN, -1, last + 1, INT_MAX})
      EXPECT_EQ(pool.Allocate(c), nullptr) << "class " << c;
    EXPECT_EQ(allocations().taken, before);
    EXPECT_EQ(pool.Allocate(last) != nullptr, last >= 0);
    EXPECT_TRUE(last < 0 || allocations().lastBytes == block) << allocations().lastBytes;
  }
}

// In place, over every byte and about where vectors end; the text alone is written to.
TEST(Frame, ByteFilter) {
  std::mt19937 random(2);
  for (int n = 0; n < 3000; ++n) {
    S set(random() % 40, '\0'), text(random() % 70, '\0');
    for (char& c : set) c = static_cast<char>(random() | 1U);
    for (char& c : text) c = static_cast<char>(random() % (n % 2 == 0 ? 256 : 8));
    S kept = text;
    std::erase_if(kept, [&](char c) { return set.find(c) != set.npos; });
    for (auto const copy : {&atr::ByteFilter::copy, &atr::ByteFilter::copyByWords}) {
      S room = text + "!";
      char *const begin = room.data(), *const end = begin + text.size();
      EXPECT_EQ(S(begin, (atr::ByteFilter(set.c_str()).*copy)(begin, begin, end)), kept);
      EXPECT_EQ(room.back(), '!');
    }
  }
}
