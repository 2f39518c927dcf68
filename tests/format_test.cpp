// Messages: what the twins of templates, fields and numbers do not reach.
#include <cinttypes>

#include "atr/plural.h"
#include "support/support.h"

using namespace test;

static S substitute(S const& text, auto... values) {
  atr_translate message(text.c_str());
  int position = 0;
  (atr_SubstituteFormat(message, ++position, values), ...);
  EXPECT_STREQ(message.Result().c_str(), message.Result().c_str()) << "the same again";
  return message.Result().c_str();
}

TEST(Format, TemplatesAndValues) {
  struct {
    char const *what, *text;
    char const* formats;  // of the positions, one behind the other
    char const* result;   // with the values <1>, <2>, %s, <4>, %1$d
  } constexpr kRows[] = {
      {"percent signs", "%%%%%", "", "%%"},
      {"a percent sign at the end", "%d%", "%d", "<1>"},
      {"a sign that is text", "%%s %ld", "%d", "%s <1>"},
      {"no number takes the lowest free", "%3$-5d%lld", "%ld%-5d", "<2><1>"},
      {"flags and letters that are none", "%+d %#x %*d %i %hd", "", "+d #x *d i hd"},
      {"fields stay in the formats", "%5.2f %-4s %lX", "%5.2f%-4s%X", "<1> <2>  %s"},
      {"a space ends no conversion", "50% off %d", "%d", "50 off <1>"},
      {"a sign with a width", "%5%d", "", "%d"},
      {"equal numbers", "%2$d %2$d %2$d %1$d", "%d%d%d%d", "<2> <4> %s <1>"},
      {"the number 0", "%0$d %1$d", "%d%d", "<1> <2>"},
      {"numbers beyond an int, and none", "%99999999999$s %4294957296$s %$s", "%s%s%s",
       "<2> %s <1>"},
  };
  for (auto const& [what, text, formats, result] : kRows) {
    SCOPED_TRACE(what);
    atr_translate const message(text);
    S all;
    for (int k = 1; message.Format(k) != nullptr; ++k) all += message.Format(k);
    EXPECT_EQ(all, formats);
    EXPECT_EQ(message.Format(0), nullptr);
    EXPECT_EQ(substitute(text, "<1>", "<2>", "%s", "<4>", "%1$d"), result);
  }
  atr_translate nothing(nullptr);
  nothing.AddSubstitution(1, "x", nullptr);
  EXPECT_TRUE(nothing.Result().IsEmpty());
  atr_translate one("%s");
  one.AddSubstitution(1, "x", "");
  EXPECT_EQ(textOf(one.Result()), "x");
  EXPECT_EQ(substitute("%5s|%5d|%-5.2s|%.9s|%s|%-3s", atr_String(), "abc", "abc", atr_String("abc"),
                       nullptr, nullptr),
            "     |abc|ab   |abc||   ");
}

// A dictionary's slip in a width must not cost the text that is there, nor gigabytes.
TEST(Format, FieldsLongerThanAString) {
  atr_translate message("%2147483647s");
  message.AddSubstitution(1, "old", nullptr);
  for (char const* const format : {"%2147483647s", "%-2147483647s", "%99999999999s"}) {
    EXPECT_THROW(message.AddSubstitution(1, "new", format), std::bad_alloc) << format;
    EXPECT_EQ(textOf(message.Result()), "old") << format;
  }
  EXPECT_THROW(atr_SubstituteFormat(message, 1, "new"), std::bad_alloc);
}

TEST(Format, TranslationDecides) {
  char key[] = "%d of %s", form[] = "%2$s: %1$d, %9$d!";
  TranslationEntry entry = {key, form};
  atr_trTable = {&entry, 1};
  EXPECT_EQ(substitute(key, 3, "ten"), "ten: 3, !");
  atr_trTable = {nullptr, 0};
  EXPECT_EQ(substitute("%d of %s\\@tail", 3, "ten"), "3 of ten");
  Locale const locale(ATR_TEST_SJIS);
  S const big(5000, 'x');
  EXPECT_EQ(substitute("%s\xE3\x82\xBD\\@", "ten"), "ten\x83\x5C");
  EXPECT_EQ(substitute("%s\xE3\x82\xBD" + big + "\xC0\x80" + big, "ten"), "ten\x83\x5C" + big);
  S const longKey = "\xE3\x82\xBD" + big;
  auto const before = allocations();
  atr_translate const encoded(longKey.c_str());
  auto const after = allocations();
  EXPECT_EQ(picture(after.taken - before.taken, after.lastBytes), picture(1, 2 + big.size() + 1))
      << "the compiled text alone";
}

struct PluralRow {
  char const* what;
  char const* rule;
  unsigned long long n;
  int index;
  atr::detail::PluralFault fault;
};

TEST(Format, PluralRules) {
  using atr::detail::PluralFault;
  S const deep = S(51, '(') + "n" + S(51, ')');
  S const tooLong(atr::detail::PluralRule::kMaxBytes + 1, ' ');
  PluralRow const rows[] = {
      {"a PO header pasted whole", "nplurals=3; plural=n>1 ? 2 : n;", 5, 2, PluralFault::kNone},
      {"with its name and a newline", "Plural-Forms: nplurals=2; plural=(n != 1);\n", 1, 0,
       PluralFault::kNone},
      {"conditions belong to the right", "n==1?0:n==2?1:2", 3, 2, PluralFault::kNone},
      {"differences to the left", "9-4-2", 0, 3, PluralFault::kNone},
      {"products before sums before comparisons", "2+3*4==14&&1", 0, 1, PluralFault::kNone},
      {"a negation is 0 or 1", "!!n+!n", 7, 1, PluralFault::kNone},
      {"the largest number", "n%10", 18446744073709551615U, 5, PluralFault::kNone},
      {"what does not count may divide by zero", "n==0 ? 0 : 8/n && 1", 0, 0, PluralFault::kNone},
      {"what is decided too", "1 || 1/0", 0, 1, PluralFault::kNone},
      {"empty", "", 1, -1, PluralFault::kSyntax},
      {"one equals sign", "n=1", 1, -1, PluralFault::kSyntax},
      {"something behind", "n!=1 x", 1, -1, PluralFault::kSyntax},
      {"an open parenthesis", "(n", 1, -1, PluralFault::kSyntax},
      {"half a condition", "n ? 1", 0, -1, PluralFault::kSyntax},
      {"a number of more than 64 bits", "18446744073709551616", 0, -1, PluralFault::kSyntax},
      {"too deep", deep.c_str(), 1, -1, PluralFault::kTooDeep},
      {"too long", tooLong.c_str(), 1, -1, PluralFault::kTooLong},
      {"a division by zero", "1/n", 0, -1, PluralFault::kDivisionByZero},
      {"a remainder by zero", "n%(n-3)", 3, -1, PluralFault::kDivisionByZero},
      {"a negative index", "n-2", 1, -1, PluralFault::kBadIndex},
      {"more than the forms told", "nplurals=2; plural=n", 2, -1, PluralFault::kBadIndex},
  };
  for (auto const& [what, rule, n, index, fault] : rows) {
    atr::detail::PluralForm const form =
        atr::detail::PluralRule(rule, rule + std::strlen(rule)).formFor(n);
    EXPECT_EQ(form.index, index) << what << ": " << rule;
    EXPECT_EQ(form.fault, fault) << what << ": " << rule;
  }
}

TEST(Format, PluralForms) {
  char rule[] = "n==1 ? 0 : 8/(n-2) < 9", ruleKey[] = "\\@plural";
  char one[] = "%d file", oneKey[] = "%d file\\@plural0", oneText[] = "eine Datei (%d)";
  char other[] = "%d files", otherKey[] = "%d files\\@plural1", otherText[] = "%d Dateien";
  TranslationEntry entries[] = {{otherKey, otherText}, {oneKey, oneText}, {ruleKey, rule}};
  std::sort(std::begin(entries), std::end(entries),
            [](auto const& a, auto const& b) { return std::strcmp(a.key, b.key) < 0; });
  atr_trTable = {entries, 3};
  auto const text = [&](int n) { return S(atr::plural(one, other, n).c_str()); };
  EXPECT_EQ(text(1), "eine Datei (1)");
  EXPECT_EQ(text(-1), "eine Datei (-1)") << "by the magnitude";
  EXPECT_EQ(text(7), "7 Dateien");
  EXPECT_EQ(text(2), "2 Dateien") << "a rule that divides by zero counts as none";
  atr_trTable = {entries, 1};
  EXPECT_EQ(text(7), "7 files") << "what the table does not have is the source's";
  atr_trTable = {nullptr, 0};
  EXPECT_EQ(text(1), "1 file");
}

TEST(Format, Conversions) {
  S const l(PRId64, sizeof PRId64 - 2);  // the platform's word for 64 bits
  struct {
    S text;
    int size;     // of the value
    char letter;  // in the place of the text's own, or 0
    S full, narrow;
  } const rows[] = {
      {"%-10.5s", 0, 0, "%-10.5s", "%s"},
      {"%5d", 0, 'u', "%5u", "%u"},
      {"%5d", 1, 0, "%5hd", "%hd"},
      {"%5d", 3, 'x', "%5hx", "%hx"},
      {"%-8x", 2, 0, "%-8" + l + "x", "%" + l + "x"},
      {"%5.2f", 2, 0, "%5.2f", "%f"},
      {"%5s", 2, 'd', "%5" + l + "d", "%" + l + "d"},
      {"%5c", 2, 0, "%5c", "%c"},
      {"%lld", 7, 0, "%lld", "%d"},
  };
  for (auto const& [text, dataSize, letter, full, narrow] : rows) {
    atr_Fmt format(text.c_str());
    auto const size = static_cast<atr_Fmt::DataSize>(dataSize);
    EXPECT_EQ(format.Format(size, letter), full) << text;
    EXPECT_EQ(format.FormatNoWidth(size, letter), narrow) << text;
    EXPECT_EQ(format.Letter(), text.back());
  }
}

TEST(Format, ReplaceNonTranslated) {
  struct {
    char const* text;
    int position;
    char const *value, *result;
  } const rows[] = {
      {"%s", 0, nullptr, ""},  {"%1$d", 1, "x", "%1$d"},        {"%3$s", 2, "x", "%3$s"},
      {"", 0, "x", ""},        {"a%1$sb", 1, "%2$s", "a%2$sb"}, {"%1$s %1$s", 1, "x", "x %1$s"},
      {"%-1$s", -1, "x", "x"}, {"%2$5s", 2, "x", "%2$5s"},
  };
  struct {
    char const *text, *pattern, *value, *result;
  } const patterns[] = {
      {"a-b-c", "-", "+", "a+b-c"},
      {"a-b-c", "", "+", "a-b-c"},
      {"%s", nullptr, "x", "%s"},
  };
  auto const check = [](char const* text, auto what, char const* value, S const& result) {
    atr_String plain(text), wrapped(text);
    EXPECT_EQ(textOf(plain.ReplaceNonTranslated(what, value)), result);
    EXPECT_EQ(textOf(wrapped.ReplaceNonTranslated(what, atr_String(value))), result);
  };
  for (auto const& [text, position, value, result] : rows) check(text, position, value, result);
  for (auto const& [text, pattern, value, result] : patterns) check(text, pattern, value, result);
  atr_String numbers("%1$d%%d of %d %2$d"), own("%s!");
  numbers.ReplaceNonTranslated(2, 9).ReplaceNonTranslated(1, 3).ReplaceNonTranslated(0, 7);
  EXPECT_STREQ(numbers.c_str(), "3%7 of %d 9");
  EXPECT_STREQ(own.ReplaceNonTranslated(0, own).c_str(), "%s!!");
}
