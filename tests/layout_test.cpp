// The test mode in fresh processes. The twins hold the folds and their room.
#include "support/support.h"

using namespace test;

TEST(Layout, TestMode) {
  auto const set = [](char const* language, char const* print, char const* folder) {
    setVariable("ZELTRA_LANG", language);
    setVariable("ZLT_QA_PRINT", print);
    setVariable("QMR_DICT_DIR", folder);
  };
  S const mark = "\x83\x5C\x81\x5B";  // the marker in Shift JIS
  auto const run = [&](char const* locale, bool isOn, S const& marker, S const& folded) {
    std::setlocale(LC_ALL, locale);
    S const text = mark + "aaa bbb " + mark + " ccc" + mark;
    EXPECT_EQ(textOf(atr_String::BreakLineString(text.c_str(), 4)), mark + folded + mark);
    char const* const first = atr_i18nExtraCharacters();
    EXPECT_EQ(first, marker);
    std::setlocale(LC_ALL, ATR_TEST_SJIS);
    set(isOn ? nullptr : "x", "x", "x");
    EXPECT_EQ(atr_i18nTesting(), isOn);
    EXPECT_EQ(picture(static_cast<void const*>(atr_i18nExtraCharacters()), first),
              picture(static_cast<void const*>(first), marker));
  };
  S const plain = "aaa\nbbb " + mark + "\nccc";
  EXPECT_FRESH("", set("x", "x", nullptr); run(ATR_TEST_SJIS, false, mark, plain));
  EXPECT_FRESH("", set("x", nullptr, "x"); run(ATR_TEST_SJIS, false, mark, plain));
  EXPECT_FRESH("", set(nullptr, "x", "x"); run(ATR_TEST_SJIS, false, mark, plain));
  EXPECT_FRESH("", set("x", "x", "x"); run("C", true, "", plain));
  EXPECT_FRESH("", set("x", "x", "x"); run(ATR_TEST_SJIS, true, mark, "aaa bbb\n" + mark + " ccc"));
}
