// Messages: templates against a slow reading of the syntax, values against the runtime's printf.
#include <cinttypes>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <regex>

#include "atr/atr.h"
#include "atr/format/template_scan.h"
#include "atr/translation/translation_table.h"
#include "support/allocation_watch.h"
#include "support/support.h"
#include "support/twins.h"

using namespace test;

namespace {

std::vector<std::string> const kValues = {"<1>", "<2>", "%s", "<4>", "%1$d"};

std::string format(std::string const& text, std::vector<std::string> const& values = kValues) {
  atr_translate message(text.c_str());
  for (std::size_t k = 0; k < values.size(); ++k) {
    message.AddSubstitution(static_cast<int>(k) + 1, values[k].c_str(), nullptr);
  }
  std::string const first = message.Result().c_str();
  EXPECT_EQ(first, message.Result().c_str());
  return first;
}

template <class... Values>
std::string substitute(std::string const& text, Values... values) {
  atr_translate message(text.c_str());
  int position = 0;
  (atr_SubstituteFormat(message, ++position, values), ...);
  return message.Result().c_str();
}

}  // namespace

// What four values in a row give for six conversions, numbered 0 to 6 or not at all: the order in
// which equal numbers end is that of the steps of the sort.
TEST(Format, EqualNumbers) {
  for (unsigned n = 0; n < 1U << 18; n += 7) {
    std::string text;
    for (unsigned bits = n, i = 0; i < 6; ++i, bits >>= 3) {
      text += bits % 8 == 7 ? "%s," : "%" + std::to_string(bits % 8) + "$s,";
    }
    test::kTwins[0].run(text);
  }
}

TEST(Format, TemplateRows) {
  constexpr char const* kRows[][3] = {// template, its formats by position, the result of kValues
                                      {"", "", ""},
                                      {"100%%", "", "100%"},
                                      {"%%%%%", "", "%%"},
                                      {"%d%%", "%d", "<1>%"},
                                      {"%d%", "%d", "<1>"},
                                      {"%%s %ld", "%d", "%s <1>"},
                                      {"%3$-5d%lld", "%ld%-5d", "<2><1>"},
                                      {"%5.2f %-10s %lX", "%5.2f%-10s%X", "<1> <2> %s"},
                                      {"%+d %#x %*d %i %hd", "", "+d #x *d i hd"},
                                      {"50% off %d", "%d", "50 off <1>"},
                                      {"%5%d", "", "%d"},
                                      {"%2$d %2$d %2$d %1$d", "%d%d%d%d", "<2> <4> %s <1>"},
                                      {"%99999999999$s %4294957296$s %$s", "%s%s%s", "<2> %s <1>"},
                                      {"%0$d %1$d", "%d%d", "<1> <2>"}};
  for (auto const& [text, formats, result] : kRows) {
    atr_translate const message(text);
    std::string all;
    for (int k = 1; message.Format(k) != nullptr; ++k) all += message.Format(k);
    EXPECT_EQ(all, formats) << text;
    EXPECT_EQ(message.Format(0), nullptr);
    EXPECT_EQ(format(text), result) << text;
  }
  atr_translate nothing(nullptr);
  atr_SubstituteFormat(nothing, 1, "x");
  EXPECT_TRUE(nothing.Result().IsEmpty());
}

TEST(Format, TranslationDecides) {
  static TranslationEntry entries[] = {
      {const_cast<char*>("%d of %s"), const_cast<char*>("%2$s: %1$d, %9$d!")}};
  atr_trTable = {entries, 1};
  EXPECT_EQ(substitute("%d of %s", 3, "ten"), "ten: 3, !");
  atr_trTable = {nullptr, 0};
  EXPECT_EQ(substitute("%d of %s\\@tail", 3, "ten"), "3 of ten");
  Locale const locale(ATR_TEST_SJIS);
  std::string const big(5000, 'x');
  EXPECT_EQ(substitute("%s\xE3\x82\xBD\\@", "ten"), "ten\x83\x5C");
  EXPECT_EQ(substitute("%s\xE3\x82\xBD" + big + "\xC0\x80" + big, "ten"), "ten\x83\x5C" + big);
}

// Twice the template may cost a little over twice the time, in all three of its steps.
TEST(Format, LargeTemplates) {
  std::string text, result;
  for (int i = 0; i < 200000; ++i) text += "%d ", result += "7 ";
  atr_translate message(text.c_str());
  for (int i = 1; i <= 200000; ++i) message.AddSubstitution(i, "7", nullptr);
  EXPECT_EQ(message.Result().c_str(), result);
}

TEST(Format, LargeFields) {
  atr_translate message("%s");
  message.AddSubstitution(1, "abc", "%9999999s");
  EXPECT_EQ(message.Result().length(), 9999999);
  message.AddSubstitution(1, nullptr, "%-3s");
  EXPECT_STREQ(message.Result().c_str(), "   ");
}

TEST(Format, Specifications) {
  using Size = atr_Fmt::DataSize;
  std::tuple<char const*, int, char, char const*, char const*> const rows[] = {
      {"%-10.5s", 0, 0, "%-10.5s", "%s"}, {"%5d", 0, 'u', "%5u", "%u"},
      {"%5d", 1, 0, "%5hd", "%hd"},       {"%5d", 3, 'x', "%5hx", "%hx"},
      {"%-8x", 2, 0, "%-8lx", "%lx"},     {"%5s", 2, 'd', "%5ld", "%ld"},
      {"%5.2f", 2, 0, "%5.2f", "%f"},     {"%5c", 2, 0, "%5c", "%c"},
      {"%lld", 7, 0, "%lld", "%d"}};
  for (auto const& [text, size, letter, full, narrow] : rows) {
    atr_Fmt format(text);
    auto const own = [size = size](std::string e) {  // the platform's word for 64 bits
      return size == 2
                 ? std::regex_replace(e, std::regex("l"), std::string(PRId64, sizeof PRId64 - 2))
                 : e;
    };
    EXPECT_EQ(format.Format(static_cast<Size>(size), letter), own(full)) << text;
    EXPECT_EQ(format.FormatNoWidth(static_cast<Size>(size), letter), own(narrow)) << text;
    EXPECT_EQ(format.Letter(), text[std::strlen(text) - 1]);
  }
}

namespace {

// What printf makes of a value; `l` in the run is no part of it.
template <class Value>
std::string print(std::string run, char letter, Value value) {
  std::erase(run, 'l');
  std::string const modifier = std::is_integral_v<Value> && sizeof value == 8 ? "ll" : "";
  char text[512];
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"  // the peer is printf itself
  std::snprintf(text, sizeof text, ("%" + run + modifier + letter).c_str(), value);
#pragma GCC diagnostic pop
  if (std::is_same_v<Value, double> && !run.empty()) atr_translate::FixExponent(text);
  return text;
}

constexpr char const* kRuns[] = {"",    "5",    "05",   "-5", "-05", "0-5",     ".3", ".0", ".",
                                 "7.3", "-7.3", "07.3", "l",  "5l",  "l-7l.3l", "12", "1"};

}  // namespace

// All runs of a valid form over all letters and kinds of values.
TEST(Format, ValuesSmallWorld) {
  for (std::string const run : kRuns) {
    for (char const letter : std::string("EXcdefgosux")) {
      std::string const text = "%" + run + letter;
      bool const isDouble = std::strchr("Eefg", letter) != nullptr;
      auto const check = [&](auto v) {
        bool const isUnsigned = std::is_unsigned_v<decltype(v)>;
        bool const isNoPadding = run.find_first_of("0.") != run.npos;  // which %c has no use for
        std::string const expected =
            isDouble        ? print("", letter, double(v))
            : letter == 's' ? std::to_string(v)
            : letter == 'c' ? print(run, letter, int(v))
                            : print(run, letter == 'd' && isUnsigned ? 'u' : letter, v);
        ASSERT_EQ(substitute(text, v),
                  letter == 'c' && isNoPadding ? substitute(text, v) : expected)
            << text;
      };
      for (long long const v : {0LL, 1LL, -1LL, 42LL, -5LL, 255LL, LLONG_MIN, LLONG_MAX}) {
        auto const bits = static_cast<unsigned long long>(v);
        check(static_cast<int>(v)), check(static_cast<unsigned>(v)), check(v), check(bits);
        check(static_cast<int>(v < 0 ? INT_MIN : INT_MAX));
        ASSERT_EQ(substitute(text, reinterpret_cast<void*>(bits)), substitute(text, bits));
        ASSERT_EQ(substitute(text, static_cast<long>(v)),
                  substitute(text, 0LL + static_cast<long>(v)));
      }
      for (double const v : {0.0, -0.0, 3.14159, -2.5e-7, 1e300, 1.5e5, HUGE_VAL, 0.5}) {
        ASSERT_EQ(substitute(text, v), isDouble ? print(run, letter, v) : print("", 'e', v))
            << text << v;
      }
      ASSERT_EQ(substitute(text, 0.5F), substitute(text, 0.5));
    }
  }
}

TEST(Format, ValueRows) {
  EXPECT_EQ(substitute("%5s|%5d|%-5.2s|%.9s", atr_String(), "abc", "abc", atr_String("abc")),
            "     |abc|ab   |abc");
  EXPECT_EQ(substitute("%c|%5c|%-5c", 0, 0, 0), "|    |");
  EXPECT_EQ(substitute("%c", -23), "\xE9");
  EXPECT_EQ(substitute("%1.2.3d|%5-3d|%.-3d", 7, 7, 7), "07|    7|7");
  EXPECT_EQ(substitute("%s", static_cast<char const*>(nullptr)), "");
  for (char const* const huge : {"2000000", "2147483648", "99999999999999999999"}) {
    for (std::string const& text : {"%" + std::string(huge), "%." + std::string(huge),
                                    "%-0" + std::string(huge) + "." + huge}) {
      EXPECT_LE(substitute(text + "d", -5).size(), 1024U) << text;
      EXPECT_LE(substitute(text + "f", 1e300).size(), 1400U) << text;
    }
  }
}

TEST(Format, WithoutMemory) {
  int const blocks = failEach([](int k) {
    failAllocation(k);
    EXPECT_EQ(substitute("%2$5d of %1$s: %ld%%", "ten", 3), "    3 of ten: %");
  });
  EXPECT_GE(blocks, 9);
}

TEST(Format, ReplaceNonTranslated) {
  atr_String s("value %1$d of %2$d");
  EXPECT_STREQ(s.ReplaceNonTranslated(2, 9).ReplaceNonTranslated(1, 3).c_str(), "value 3 of 9");
  std::tuple<char const*, int, char const*, char const*> const rows[] = {
      {"%s", 0, nullptr, ""},  {"%1$d", 1, "x", "%1$d"},        {"%3$s", 2, "x", "%3$s"},
      {"", 0, "x", ""},        {"a%1$sb", 1, "%2$s", "a%2$sb"}, {"%1$s %1$s", 1, "x", "x %1$s"},
      {"%-1$s", -1, "x", "x"}, {"%2$5s", 2, "x", "%2$5s"}};
  for (auto const& [text, position, value, result] : rows) {
    EXPECT_STREQ(atr_String(text).ReplaceNonTranslated(position, value).c_str(), result) << text;
    EXPECT_STREQ(atr_String(text).ReplaceNonTranslated(position, atr_String(value)).c_str(), result)
        << text;
  }
  EXPECT_STREQ(atr_String("%%d").ReplaceNonTranslated(0, 7).c_str(), "%7");
  EXPECT_STREQ(atr_String("%10$d").ReplaceNonTranslated(1, 7).c_str(), "%10$d");
  EXPECT_STREQ(atr_String("a-b-c").ReplaceNonTranslated("-", "+").c_str(), "a+b-c");
  EXPECT_STREQ(atr_String("abc").ReplaceNonTranslated(nullptr, "+").c_str(), "abc");
  EXPECT_STREQ(atr_String("abc").ReplaceNonTranslated("", atr_String("+")).c_str(), "abc");
  atr_String const shared("%s!");
  EXPECT_STREQ(atr_String(shared).ReplaceNonTranslated(0, shared).c_str(), "%s!!");
  EXPECT_STREQ((s = "%s!").ReplaceNonTranslated(0, s).c_str(), "%s!!");
}
