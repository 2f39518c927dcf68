// What must not break anything: memory that ends in any function, input made to take long, a
// stop before the start.
#include <chrono>
#include <functional>

#include "atr/translation/dictionary_reader.h"
#include "support/support.h"

using namespace test;

namespace {

struct Row {
  char const* what;
  std::function<void()> run;
};

std::vector<Row> rowsOver(atr_String const& s, atr_translate& message, atr_Allocator& pool) {
  auto const fill = [&](auto const&... values) {
    int position = 0;
    (atr_SubstituteFormat(message, ++position % 3 + 1, values), ...);
  };
  auto const copied = [&](auto const& change) {
    atr_String copy(s);
    change(copy);
  };
  return {
      {"Substr", [=] { s.Substr(1, 100); }},
      {"extract", [=] { s.extract(1, ' '), s.extract(1, ' ', 'w'); }},
      {"operator+", [=] { s + s; }},
      {"BreakLineString", [=] { atr_String::BreakLineString(s, 10); }},
      {"AddLineBreaks", [=] { atr_String::AddLineBreaks(s, 10, false); }},
      {"ReplaceNonTranslated",
       [=] { copied([](auto& c) { c.ReplaceNonTranslated(0, 7).ReplaceNonTranslated(2, "x"); }); }},
      {"a pattern",
       [=] { copied([](auto& c) { c.ReplaceNonTranslated("words", "more words"); }); }},
      {"numbers", [] { atr_String(1), atr_String(2U), atr_String(0.5F), atr_String(0.5); }},
      {"atr_raw", [=] { atr_raw("key"), atr_raw("\xC3\xA9 encoded"), atr_raw("a\xC0\x80"); }},
      {"a message", [] { atr_translate made("%1$d %% %s\xC3\xA9"); }},
      {"values", [=] { fill(1, 2U, 3LL, 4ULL, 5.0, 6.0F, "seven", atr_String("8"), &fill, 9L); }},
      {"a field", [&] { message.AddSubstitution(1, "x", "%300s"); }},
      {"Result", [&] { message.Result(); }},
      {"Fmt",
       [] {
         atr_Fmt format("%-5d");
         format.Format(atr_Fmt::DataInt64, 'x'), format.FormatNoWidth(atr_Fmt::DataInt, 0);
       }},
      {"a pool", [&] { pool.Allocate(1); }}};
}

double secondsOf(std::function<void(int)> const& work, int size) {
  double best = 1e9;
  for (int i = 0; i < 5; ++i) {
    auto const start = std::chrono::steady_clock::now();
    work(size);
    best = std::min(
        best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  }
  return best;
}

}  // namespace

TEST(Faults, EveryFunctionWithoutMemory) {
  Locale const locale(ATR_TEST_LATIN1);
  atr_String const s("some words and %d and %2$s, more than a line");
  S const before = textOf(s);
  for (std::size_t row = 0;; ++row) {
    std::size_t rows = 0;
    char const* what = nullptr;
    int const blocks = failEach([&](int k) {
      atr_translate message("%d %s %x");
      atr_Allocator pool(16, 3, 4096);
      auto const all = rowsOver(s, message, pool);
      rows = all.size(), what = all[row].what;
      bool const hasFailed = fails(k, all[row].run);
      ASSERT_EQ(textOf(s), before) << what;
      ASSERT_TRUE(hasFailed || k > 0) << what << " takes no memory";
      ASSERT_GE(message.Result().length(), 2U) << what;
    });
    ASSERT_GT(blocks, 0) << what;
    if (row + 1 == rows) break;
  }
}

// Four times the input takes about four times as long, and with a square sixteen times.
TEST(Faults, TimeGrowsWithTheInput) {
  auto const many = [](int n, S const& s) {
    S text;
    while (text.size() < z(n)) text += s;
    return text;
  };
  std::tuple<char const*, int, std::function<void(int)>> const rows[] = {
      {"equal digits", 100'000,
       [=](int n) { strnatcmp((many(n, "7") + "a").c_str(), (many(n, "7") + "b").c_str()); }},
      {"a separator by itself", 100'000,
       [=](int n) { atr_String(many(n, "/").c_str()).Substitute("/", "/", INT_MAX); }},
      {"a separator by more", 20'000,
       [=](int n) { atr_String(many(n, "/").c_str()).Substitute("/", "--", INT_MAX); }},
      {"unnumbered conversions", 10'000, [=](int n) { atr_translate(many(n, "%d").c_str()); }},
      {"long numbers", 100'000, [=](int n) { atr_translate(("%" + many(n, "9") + "$d").c_str()); }},
      {"a wide field", 1'000'000,
       [](int n) {
         atr_translate message("%s");
         message.AddSubstitution(1, "x", ("%" + std::to_string(n) + "s").c_str());
       }},
      {"short lines", 100'000,
       [=](int n) { atr_String::AddLineBreaks(many(n, "some words\n").c_str(), 5, false); }},
      {"no blanks", 100'000,
       [=](int n) { atr_String::BreakLineString(many(n, "\x83").c_str(), 5); }},
      {"escapes", 100'000, [=](int n) { atr_trDecodeEscapes(many(n, "\\q").data()); }}};
  for (auto const& [what, size, work] : rows) {
    double factor = 99;
    for (int attempt = 0; attempt < 5 && factor > 8; ++attempt)
      factor = secondsOf(work, 4 * size) / secondsOf(work, size);
    EXPECT_LT(factor, 8) << what;
  }
}

TEST(Faults, StopBeforeTheStart) {
  auto const run = [] {
    int count = 0;
    atr_finalize(count);
    EXPECT_EQ(textOf(atr_String("a") + atr_raw("b")), "ab");
    atr_initialize(count);
    EXPECT_EQ(textOf(atr_String("a") + atr_raw("b")), "ab");
  };
  EXPECT_FRESH("", run());
}
