// Line breaking against a slow reading of its rules, and the test mode in fresh processes.
#include <chrono>
#include <clocale>
#include <cstring>

#include "atr/atr.h"
#include "atr/strings/body_room.h"
#include "support/support.h"

using namespace test;
using namespace std::string_literals;

namespace {

struct Text : atr_String {
  using atr_String::atr_String;
  Text(atr_String const& other) : atr_String(other) {}
  int size() const { return rep->size; }
};

std::string textOf(atr_String const& s) { return {s.c_str(), s.length()}; }

}  // namespace

// The room of a folded text is what appending it line by line comes to.
TEST(Layout, RoomOfTheResult) {
  std::string text;
  for (int length = 0; length < 600; ++length, text += length % 7 == 0 ? ' ' : 'x') {
    atr_String const s(text.c_str());
    Text const folded(atr_String::BreakLineString(s, 10));
    if (length <= 10) continue;
    Text appended;
    std::string const lines = textOf(folded);
    for (std::size_t at = 0, end = 0; at < lines.size(); at = end + 1) {
      end = std::min(lines.size(), lines.find('\n', at));
      if (at > 0) appended.Append("\n");
      appended.Append(lines.substr(at, end - at).c_str());
    }
    ASSERT_EQ(folded.size(), appended.size()) << length;
    ASSERT_EQ(Text(atr_String::AddLineBreaks(s, 10, false)).size(),
              atr::bodySize(static_cast<int>(lines.size())));
  }
}

TEST(Layout, LongTexts) {
  std::string text;
  while (text.size() < 2'000'000) text += "some words\n";
  atr_String const folded = atr_String::AddLineBreaks(atr_String(text.c_str()), 5, false);
  EXPECT_EQ(folded.length(), text.size());
}

TEST(Layout, TestMode) {
  auto const set = [](char const* language, char const* print, char const* folder) {
    setVariable("ZELTRA_LANG", language);
    setVariable("ZLT_QA_PRINT", print);
    setVariable("QMR_DICT_DIR", folder);
  };
  auto const decide = [&](bool expected) {
    EXPECT_EQ(atr_i18nTesting(), expected);
    set(expected ? nullptr : "x", "x", "x");
    EXPECT_EQ(atr_i18nTesting(), expected) << "decided for good";
  };
  EXPECT_FRESH("", set("x", "x", nullptr); decide(false));
  EXPECT_FRESH("", set("x", nullptr, "x"); decide(false));
  EXPECT_FRESH("", set(nullptr, "x", "x"); decide(false));
  EXPECT_FRESH("", set("x", "x", "x"); decide(true));
  auto const marker = [](char const* locale, char const* expected) {
    std::setlocale(LC_ALL, locale);
    char const* const text = atr_i18nExtraCharacters();
    EXPECT_STREQ(text, expected);
    std::setlocale(LC_ALL, ATR_TEST_SJIS);
    EXPECT_EQ(atr_i18nExtraCharacters(), text);
  };
  EXPECT_FRESH("", marker(ATR_TEST_SJIS, "\x83\x5C\x81\x5B"));
  EXPECT_FRESH("", marker("C", ""));
  auto const breakMarked = [&](char const* locale, char const* mode, char const* expected) {
    std::setlocale(LC_ALL, locale);
    set(mode, "x", "x");
    EXPECT_STREQ(atr_String::BreakLineString("\x83\x5C\x81\x5B"
                                             "aaa bbb \x83\x5C\x81\x5B ccc\x83\x5C\x81\x5B",
                                             4)
                     .c_str(),
                 expected);
  };
  EXPECT_FRESH("", breakMarked(ATR_TEST_SJIS, "x",
                               "\x83\x5C\x81\x5B"
                               "aaa bbb\n\x83\x5C\x81\x5B ccc\x83\x5C\x81\x5B"));
  EXPECT_FRESH("", breakMarked(ATR_TEST_SJIS, nullptr,
                               "\x83\x5C\x81\x5B"
                               "aaa\nbbb \x83\x5C\x81\x5B\nccc\x83\x5C\x81\x5B"));
  EXPECT_FRESH("", breakMarked("C", "x",
                               "\x83\x5C\x81\x5B"
                               "aaa\nbbb \x83\x5C\x81\x5B\nccc\x83\x5C\x81\x5B"));
}
