// What must not break anything: memory that ends in any function, input made to take long, and a
// stop before the start.
#include "atr/strings/string_module.h"
#include "support/support.h"

using namespace test;

// What has no test of its own for it. Nothing is lost or changed, and what was made stays usable.
static void runEachWithoutMemory() {
  TempFile const file("memory.py", "['a'] = r'1'\n['b'] = r'2'\n");
  setEnvironment("1", "memory.py", ATR_TEST_LATIN1, tempFolder(), "-");
  setVariable("ATR_SUMMARY", "x");
  Locale const locale(ATR_TEST_LATIN1);
  int starts = 0;
  atr_String const s("some words and %d and %2$s, more than a line");
  S const before = textOf(s);
  for (auto const step : {atr_finalize, atr_initialize}) {  // a stop before the start
    step(starts);
    ASSERT_EQ(textOf(s + atr_raw("b")), before + "b");
  }
  atr_initialize(starts);  // with nothing to report
  atr_finalize(starts);
  for (std::size_t row = 0, rows = 1; row < rows; ++row) {
    char const* what = nullptr;
    int const blocks = failEach([&](int k) {
      atr_translate message("%d %s %x");
      atr_Allocator pool(16, 3, 4096);
      atr_Fmt format("%-5d");
      atr_String copy(s);
      auto const fill = [&](auto... values) {
        int n = 0;
        (atr_SubstituteFormat(message, n++ % 3 + 1, values), ...);
      };
      std::pair<char const*, std::function<void()>> const all[] = {
          {"Substr", [&] { s.Substr(1, 100); }},
          {"extract", [&] { s.extract(1, ' '); }},
          {"extract with an escape", [&] { s.extract(1, ' ', 'w'); }},
          {"+", [&] { s + s; }},
          {"BreakLineString", [&] { atr_String::BreakLineString(s, 10); }},
          {"AddLineBreaks", [&] { atr_String::AddLineBreaks(s, 10, false); }},
          {"values in place",
           [&] {
             copy.ReplaceNonTranslated(0, 7).ReplaceNonTranslated(2, "x").ReplaceNonTranslated(
                 "words", "more words");
           }},
          {"an int", [] { atr_String(1); }},
          {"an unsigned", [] { atr_String(2U); }},
          {"a float", [] { atr_String(0.5F); }},
          {"a double", [] { atr_String(0.5); }},
          {"atr_raw", [] { atr_raw("key"); }},
          {"atr_raw, encoded", [] { atr_raw("\xC3\xA9 encoded"); }},
          {"atr_raw, with a NUL", [] { atr_raw("a\xC0\x80"); }},
          {"a message", [] { atr_translate("%1$d %% %s\xC3\xA9"); }},
          {"Result", [&] { message.Result(); }},
          {"values", [&] { fill(1, 2U, 3LL, 4ULL, 5.0, 6.0F, &s, 9L, "seven", s); }},
          {"a wide field", [&] { message.AddSubstitution(1, "x", "%300s"); }},
          {"Format", [&] { format.Format(atr_Fmt::DataInt64, 'x'); }},
          {"FormatNoWidth", [&] { format.FormatNoWidth(atr_Fmt::DataInt, 0); }},
          {"a pool", [&] { pool.Allocate(1); }},
          {"a table", [] { atr_trBuildDB(); }},
          {"a start", [&] { atr_initialize(starts); }},
      };
      rows = std::size(all), what = all[row].first;
      bool const hasFailed = fails(k, all[row].second);
      ASSERT_TRUE(hasFailed || what != "a table"s || atr_trTable.count == 2);
      ASSERT_EQ(textOf(s) + textOf(s + s), before + before + before) << what;
      ASSERT_GE(message.Result().length(), 2U) << what;
      int const missing = !atr_repPool + !atr_bodyPool + !atr_summary;
      ASSERT_EQ(missing, starts == 0 ? 3 : hasFailed ? 1 : 0);
      if (starts > 0) atr_finalize(starts);
      atr_trReleaseDB();
      ASSERT_EQ(picture(mem_status().blocksInUse, starts), "0 0") << what;
    });
    ASSERT_GT(blocks, 0) << what;
  }
}

// A client that replaces operator new and delete sees both ends of every block.
TEST(Faults, MemoryComesFromThePlainForm) {
  TempFile const file("plain.py", "['b'] = r'1'\n['a'] = r'2'\n['c'] = r'3'\n");
  auto const run = [] {
    setEnvironment("1", "plain.py", ATR_TEST_LATIN1, tempFolder(), "-");
    setVariable("ATR_SUMMARY", "x");
    int const before = allocations().nothrow;
    int starts = 0;
    atr_initialize(starts);
    atr_tr_enable(true);
    EXPECT_EQ(atr_trTable.count, 3);
    atr_finalize(starts);
    EXPECT_EQ(allocations().nothrow - before, 0);
  };
  EXPECT_FRESH("Reps Created", run());
}

TEST(Faults, EveryFunctionWithoutMemory) {
  EXPECT_FRESH("0.0 Mean length\n +0.0 Sigma length\n +0.0 Mean spare\n +0.0 Sigma spare\n",
               runEachWithoutMemory());
}

static double cpuSecondsOf(std::function<void(int)> const& work, int size) {
  double const start = cpuSeconds();
  work(size);
  return cpuSeconds() - start;
}

// How many times the processor is busy for four times the input: about 4 times, and with a
// square 16. The size is one that keeps it busy for a moment, so that work which is too slow ends
// soon as well.
static double growthOf(std::function<void(int)> const& work) {
  constexpr double kMoment = 0.05;  // seconds; several ticks of the coarsest clock
  constexpr int kLargest = 1 << 20;
  int size = 1 << 10;
  while (size < kLargest && cpuSecondsOf(work, size) < kMoment) size *= 2;
  return cpuSecondsOf(work, 4 * size) / std::max(cpuSecondsOf(work, size), kMoment / 4);
}

TEST(Faults, WorkGrowsWithTheInput) {
  auto const many = [](int n, S const& s) {
    S text;
    while (text.size() < z(n)) text += s;
    return text;
  };
  std::pair<char const*, std::function<void(int)>> const rows[] = {
      {"equal digits",
       [&](int n) { strnatcmp((many(n, "7") + "a").c_str(), (many(n, "7") + "b").c_str()); }},
      {"a separator by itself",
       [&](int n) { atr_String(many(n, "/").c_str()).Substitute("/", "/", INT_MAX); }},
      {"a separator by more",
       [&](int n) { atr_String(many(n, "/").c_str()).Substitute("/", "--", INT_MAX); }},
      {"unnumbered conversions", [&](int n) { atr_translate(many(n / 8, "%d").c_str()); }},
      {"long numbers", [&](int n) { atr_translate(("%" + many(n, "9") + "$d").c_str()); }},
      {"a wide field",
       [](int n) {
         atr_translate("%s").AddSubstitution(1, "x", ("%" + std::to_string(20 * n) + "s").c_str());
       }},
      {"short lines",
       [&](int n) { atr_String::AddLineBreaks(many(n, "some words\n").c_str(), 5, false); }},
      {"no blanks", [&](int n) { atr_String::BreakLineString(many(n, "\x83").c_str(), 5); }},
      {"a locale's runs",
       [&](int n) {
         Locale l(ATR_TEST_SJIS);
         atr_utf8_from_encoding(nullptr, EncodingLocale, octets(many(n, "a")));
       }},
      {"escapes", [&](int n) { atr_trDecodeEscapes(many(n, "\\q").data()); }},
  };
  for (auto const& [what, work] : rows) {
    double factor = growthOf(work);
    for (int again = 0; again < 4 && factor > 8; ++again) factor = std::min(factor, growthOf(work));
    EXPECT_LT(factor, 8) << what;
  }
}
