// The test mode in fresh processes. The twins hold the folds and their room.
#include "support/support.h"

using namespace test;

TEST(Layout, TestMode) {
  S const mark = "\x83\x5C\x81\x5B";  // the marker in Shift JIS
  auto const set = [](S const& language, S const& print, S const& folder) {
    setEnvironment("-", "-", language, "-", folder), setVariable("ZLT_QA_PRINT", print);
  };
  auto const run = [&](char const* locale, bool isOn) {
    bool const isMarked = locale == S(ATR_TEST_SJIS);
    S const marker = isMarked ? mark : "", text = mark + "aaa bbb " + mark + " ccc" + mark;
    S const folded = isOn && isMarked ? "aaa bbb\n" + mark + " ccc" : "aaa\nbbb " + mark + "\nccc";
    std::setlocale(LC_ALL, locale);
    EXPECT_EQ(textOf(atr_String::BreakLineString(text.c_str(), 4)), mark + folded + mark);
    char const* const first = atr_i18nExtraCharacters();
    std::setlocale(LC_ALL, ATR_TEST_SJIS);
    set(isOn ? "-" : "x", "x", "x");  // too late
    EXPECT_EQ(atr_i18nTesting(), isOn);
    EXPECT_EQ(static_cast<void const*>(atr_i18nExtraCharacters()), first);
    EXPECT_EQ(first, marker);
  };
  EXPECT_FRESH("", set("x", "x", "-"); run(ATR_TEST_SJIS, false));
  EXPECT_FRESH("", set("x", "-", "x"); run(ATR_TEST_SJIS, false));
  EXPECT_FRESH("", set("-", "x", "x"); run(ATR_TEST_SJIS, false));
  EXPECT_FRESH("", set("x", "x", "x"); run("C", true));
  EXPECT_FRESH("", set("x", "x", "x"); run(ATR_TEST_SJIS, true));
}
