// The twins over their small worlds, over seeded random bytes, and over the corpora of the fuzz
// targets, in locales of one and of several bytes a character. The first difference ends a test.
#include <csignal>

#include "support/support.h"

using namespace test;

// Every text of up to `longest` of the given pieces.
void forEachText(std::vector<S> const& pieces, int longest, auto const& visit, S const& text = "") {
  visit(text);
  for (S const& piece : pieces)
    if (longest > 0) forEachText(pieces, longest - 1, visit, text + piece);
}

static S randomText(std::mt19937& random, std::vector<S> const& pieces) {
  S bytes;
  for (auto n = random() % 200; n > 0; --n)
    bytes += pieces.empty() ? S(1, static_cast<char>(random())) : pieces[random() % pieces.size()];
  return bytes;
}

// Calls check(bytes, origin) for all inputs of a twin.
static void forEachInput(Twin const& twin, auto const& check) {
  constexpr unsigned kSeed = 1;
  forEachText(twin.pieces, twin.longest, [&](S const& bytes) { check(bytes, "the small world"); });
  std::mt19937 random(kSeed);
  for (int i = 0; i < 2000; ++i)
    check(randomText(random, i % 2 == 0 ? twin.pieces : std::vector<S>()),
          picture("random text", i, "of seed", kSeed));
  for (auto const& entry : std::filesystem::directory_iterator(ATR_TEST_CORPUS + S(twin.name))) {
    std::ifstream file(entry.path(), std::ios::binary);
    check(S(std::istreambuf_iterator<char>(file), {}), entry.path().generic_string());
  }
}

// The sanitizers end a process by abort, and what they wrote is still captured then.
extern "C" char const* __asan_default_options() { return "abort_on_error=1"; }

static S running;  // what a process that ends so was at

static void tellWhatRan(int) {
  S const errors = testing::internal::GetCapturedStderr();
  std::fputs((errors + running + "\n").c_str(), stderr);
}

class Twins : public testing::TestWithParam<std::size_t> {};

TEST_P(Twins, Agree) {
  Twin const& twin = twins()[GetParam()];
  S const program =
      "'" + testing::internal::GetArgvs().front() + "' --gtest_filter=Twins.Agree/" + twin.name;
  std::optional<S> report;
  auto const check = [&](S const& bytes, S const& origin) {
    if (report.has_value()) return;
    running = "ended in the twin "s + twin.name + ", locale " + std::setlocale(LC_ALL, nullptr) +
              ", " + origin + ", input \"" + escaped(bytes) + '"';
    report = reportOf(twin, bytes, origin, program);
  };
  testing::internal::CaptureStderr();  // the warnings of the dictionary reader
  auto* const before = std::signal(SIGABRT, tellWhatRan);
  if (!repeats(twin, program, report)) {
    for (char const* const locale :
         {"C", ATR_TEST_LATIN1, ATR_TEST_SJIS, ATR_TEST_EUCJP, ATR_TEST_ASCII_LETTERS}) {
      Locale const set(locale);
      forEachInput(twin, check);
    }
  }
  std::signal(SIGABRT, before);
  testing::internal::GetCapturedStderr();
  if (report.has_value()) FAIL() << *report;
}

INSTANTIATE_TEST_SUITE_P(, Twins, testing::Range(std::size_t{0}, twins().size()),
                         [](auto const& twin) { return twins()[twin.param].name; });

TEST(TwinReport, ShowsTheShortestInputAsALiteral) {
  Twin const unequal = {
      "unequal",
      [](std::string_view bytes) {
        if (bytes.find('\'') < bytes.find('\xFF') && bytes.find('\xFF') != S::npos)
          throw Difference{"step 3", S(200, 'a') + "b", S(200, 'a') + "\n"};
      },
      {},
      0};
  Locale const locale("C");
  EXPECT_FALSE(reportOf(unequal, "\xFF'", "here", "program").has_value());
  S const report = reportOf(unequal, "some 'text\\\xFF\1", "here", "program").value_or("none");
  for (char const* const line :
       {"where:    step 3", "locale:   C", "found in: here, 13 bytes", "input:    \"\\047\\377\"",
        "expected: \"aaa", "aaab\" (41 of 201 bytes, from byte 160)", "aaa\\n\" (41 of",
        "ATR_TWIN_LOCALE='C' ATR_TWIN_INPUT='\\047\\377' program"})
    EXPECT_NE(report.find(line), S::npos) << line << " in\n" << report;
  S bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  EXPECT_EQ(unescaped(escaped(bytes)), bytes);
}
