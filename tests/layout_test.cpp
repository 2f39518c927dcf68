// Long texts, and the test mode in fresh processes. The twins hold the folds and their room.
#include "support/support.h"

using namespace test;

TEST(Layout, LongTexts) {
  S text;
  while (text.size() < 2'000'000) text += "some words\n";
  EXPECT_EQ(atr_String::AddLineBreaks(text.c_str(), 5, false).length(), text.size());
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
  S const mark = "\x83\x5C\x81\x5B";  // the marker in Shift JIS
  auto const marked = [&](char const* locale, char const* mode, S const& marker, S const& folded) {
    std::setlocale(LC_ALL, locale);
    set(mode, "x", "x");
    S const text = mark + "aaa bbb " + mark + " ccc" + mark;
    EXPECT_EQ(textOf(atr_String::BreakLineString(text.c_str(), 4)), mark + folded + mark);
    char const* const first = atr_i18nExtraCharacters();
    EXPECT_EQ(first, marker);
    std::setlocale(LC_ALL, ATR_TEST_SJIS);
    EXPECT_EQ(static_cast<void const*>(atr_i18nExtraCharacters()), first) << "made for good";
    EXPECT_EQ(first, marker);
  };
  EXPECT_FRESH("", marked(ATR_TEST_SJIS, "x", mark, "aaa bbb\n" + mark + " ccc"));
  EXPECT_FRESH("", marked(ATR_TEST_SJIS, nullptr, mark, "aaa\nbbb " + mark + "\nccc"));
  EXPECT_FRESH("", marked("C", "x", "", "aaa\nbbb " + mark + "\nccc"));
}
