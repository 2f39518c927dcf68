// Start and stop, the summary they switch, the pools they make.
#include <climits>
#include <cstring>
#include <map>
#include <random>

#include "atr/atr.h"
#include "atr/frame/memory.h"
#include "atr/strings/string_module.h"
#include "atr/strings/summary.h"
#include "support/allocation_watch.h"
#include "support/support.h"

using namespace test;

TEST(Frame, StartsAndStopsNest) {
  int count = 5;
  Allocations const before = allocations();
  for (int round = 1; round <= 3; ++round) {
    atr_initialize(count);
    atr_initialize(count);
    EXPECT_EQ(count, 6);
    EXPECT_NE(atr_repPool, nullptr);
    EXPECT_NE(atr_bodyPool, nullptr);
    atr_finalize(count);
    EXPECT_EQ(count, 6);
    EXPECT_EQ(mem_status().stops, round - 1);
    atr_finalize(count);
    EXPECT_EQ(count, 5);
    EXPECT_EQ(mem_status().starts, round);
    EXPECT_EQ(mem_status().stops, round);
    EXPECT_EQ(atr_repPool, nullptr);
  }
  EXPECT_EQ(allocations().taken - before.taken, allocations().freed - before.freed);
}

TEST(Frame, StartWithoutMemory) {
  auto const run = [] {
    setVariable("ATR_SUMMARY", "1");
    for (int k = 0; k < 4; ++k) {
      int count = 0;
      failAllocation(k);
      atr_initialize(count);
      failAllocation(-1);
      EXPECT_EQ(atr_repPool == nullptr, k == 0);
      EXPECT_EQ(atr_bodyPool == nullptr, k == 1);
      EXPECT_EQ(atr_summary == nullptr, k == 2);
      EXPECT_STREQ((atr_String("a") + "b").c_str(), "ab");
      atr_finalize(count);
    }
  };
  EXPECT_FRESH("Reps Created", run());
}

TEST(Frame, SummaryReport) {
  auto const run = [](auto work) {
    setVariable("ATR_SUMMARY", "x");
    int count = 0;
    atr_initialize(count);
    work();
    atr_finalize(count);
    EXPECT_EQ(atr_summary, nullptr);
  };
  EXPECT_FRESH(
      "^ +0 Reps Created\n +0 Strings Created\n +0 Extension Failures\n +0 Active\n +0 Bytes in "
      "use\n"
      " +0 Maximum active\n +0 Maximum bytes in use\n +0.0 Mean length\n +0.0 Sigma length\n"
      " +0.0 Mean spare\n +0.0 Sigma spare\n$",
      run([] {}));
  auto const strings = [] {
    char const borrowed[] = "borrowed";
    atr_String const a("0123456789"), share(a);  // 20 bytes, 10 of text
    atr_String b(std::string(300, 'x').c_str());
    atr_String const c(borrowed, 8, atr_String::BorrowText);
    b.Append(a);  // separate: a move, no extension failure
    atr_String d("0123456789");
    d.isolate(40);                      // old and new alive at once: 20 + 20 + 52
    d = std::string(100, 'y').c_str();  // not here: 52 gives way to 116
  };
  EXPECT_FRESH(
      "^ +3 Reps Created\n +4 Strings Created\n +2 Extension Failures\n +0 Active\n"
      " +0 Bytes in use\n +5 Maximum active\n +136 Maximum bytes in use\n"
      " +32.5 Mean length\n +39.0 Sigma length\n +19.5 Mean spare\n +13.2 Sigma spare\n$",
      run(strings));
  EXPECT_FRESH("", int count = 0; atr_initialize(count); EXPECT_EQ(atr_summary, nullptr));
}

TEST(Pool, Rows) {
  std::tuple<int, int, int, std::size_t, int> const rows[] = {
      // ..., slab block, highest that fits
      {12, 0, 0, 4096, 0},      {32, 7, 16384, 16384, 7},
      {4, 20, 100, 400, 15},    {1000, 0, 0, 65536, 0},
      {5000, 15, 0, 65536, 12}, {INT_MAX, 15, INT_MAX, 65536, -1},
      {0, INT_MIN, -5, 400, 0}, {INT_MIN, INT_MAX, INT_MIN, 400, 15}};
  for (auto const& [unitBytes, maxClass, slabBytes, block, lastClass] : rows) {
    atr_Allocator pool(unitBytes, maxClass, slabBytes);
    Allocations const before = allocations();
    for (int const c : {INT_MIN, -1, lastClass + 1, INT_MAX})
      EXPECT_EQ(pool.Allocate(c), nullptr) << unitBytes;
    EXPECT_EQ(allocations().taken, before.taken);
    EXPECT_EQ(pool.Allocate(lastClass) != nullptr, lastClass >= 0) << unitBytes;
    EXPECT_EQ(allocations().lastBytes, lastClass >= 0 ? block : before.lastBytes) << unitBytes;
  }
}

TEST(Pool, Steps) {
  atr_Allocator pool(4, 3,
                     0);  // slabs of 1020 words, of which 4 are heads and the last is never given
  auto const words = [](void const* a, void const* b) {
    return static_cast<int const*>(b) - static_cast<int const*>(a);
  };
  void* const a = pool.Allocate(0);
  void* const b = pool.Allocate(1);
  EXPECT_EQ(words(a, b), 1);
  EXPECT_FALSE(pool.Extend(a, 0, 1)) << "not the last carved";
  EXPECT_TRUE(pool.Extend(b, 1, 1));
  EXPECT_FALSE(pool.Extend(b, 1, 0));
  EXPECT_FALSE(pool.Extend(b, 1, 4));
  EXPECT_FALSE(pool.Extend(b, -1, 3));
  EXPECT_TRUE(pool.Extend(b, 1, 3));
  EXPECT_EQ(words(b, pool.Allocate(0)), 4);
  pool.Release(a, 0);
  EXPECT_NE(pool.Allocate(1), a);
  EXPECT_EQ(pool.Allocate(0), a);
  int const before = allocations().taken;
  for (int left = 1020 - 4 - 8; left > 1; --left) pool.Allocate(0);
  EXPECT_EQ(allocations().taken, before) << "up to the last word";
  void* const second = pool.Allocate(0);
  EXPECT_EQ(allocations().taken, before + 1);
  pool.Release(a, 0);
  EXPECT_EQ(pool.Allocate(0), static_cast<int*>(second) + 1) << "the newest slab first";
  while (allocations().taken == before + 1 && pool.Allocate(0) != a) continue;
  EXPECT_EQ(allocations().taken, before + 1) << "an older slab's free block before a new slab";
  void* const foreign = ::operator new(8);
  EXPECT_FALSE(pool.Extend(foreign, 0, 1));
  int const freed = allocations().freed;
  pool.Release(foreign, 0);
  pool.Release(::operator new(8), 99);
  pool.Release(nullptr, 0);
  EXPECT_EQ(allocations().freed, freed + 2);
}
