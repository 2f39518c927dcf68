// Strings: every operation in every kind of body, shared and not.
#include <cfenv>
#include <cmath>
#include <random>

#include "atr/strings/general_form.h"
#include "support/support.h"

using namespace test;

constexpr int kAll = INT_MAX, kMin = INT_MIN;
atr_String const kX("X"), kAB("ab"), kLong(S(260, 'q').c_str());

// Text and holders, a null string's being 1, and whether its fields agree.
static S look(Text const& s) {
  auto const* const r = s.rep;
  bool const fits = r == nullptr || r->size == 0 || r->length < r->size;
  bool const isSound = fits && (r == nullptr) == (s.body == nullptr) && s.c_str()[s.length()] == 0;
  return textOf(s) + (isSound ? "|" : " broken|") + std::to_string(r != nullptr ? r->refCount : 1);
}

// Null, plain (inline or separate), roomy, borrowed, adopted. `text` outlives the string.
static Text make(int kind, S const& text) {
  int const n = static_cast<int>(text.size());
  if (kind == 0) return {};
  if (kind == 1) return Text(text.c_str(), n);
  if (kind == 2) return Text(n + 200, Text::PreSize).append(text.c_str(), n, 0, kAll);
  if (kind == 3) return Text(text.c_str(), n, Text::BorrowText);
  auto* const block = static_cast<char*>(::operator new(text.size() + 1));
  return Text(std::strcpy(block, text.c_str()), n, Text::AdoptBlock);
}

static int len(atr_String const& s) { return static_cast<int>(s.length()); }
static int half(atr_String const& s) { return len(s) / 2; }

struct Operation {
  char const* what;
  bool alwaysWrites;  // also where the text stays as it is
  void (*run)(atr_String& s);
  // Replaces `n` times at most. One that is left without memory has replaced some times.
  void (*replaceUpTo)(atr_String& s, int n) = nullptr;
};
#define RUN(what) [](atr_String& s) { what; }
#define WRITES(what) Operation({#what, true, RUN(what)})
#define MAY_WRITE(what) Operation({#what, false, RUN(what)})
#define SUBSTITUTES(from, to, most)                                                           \
  Operation({"Substitute " #from " " #to " " #most, false, RUN(s.Substitute(from, to, most)), \
             [](atr_String& s, int n) { s.Substitute(from, to, std::min(n, most)); }})
Operation const kOperations[] = {
    WRITES(s.append("0123", 4, 1, 2)),
    WRITES(s.append("", 0, 0, kAll)),
    WRITES(s.Append(kLong)),
    WRITES(s.Append(s)),
    WRITES(s.append(s.c_str(), len(s) + 1, 0, kAll)),
    WRITES(s.Erase(1, 3)),
    WRITES(s.Erase(kAll, 5)),
    WRITES(s.insert(0, "hello", 5, 0, kAll)),
    WRITES(s.insert(0, "", 0, 0, 0)),
    WRITES(s.insert(1, s.c_str(), len(s), 0, kAll)),
    WRITES(s.replace(0, 2, "w", 1, 0, kAll)),
    WRITES(s.replace(0, 1, s.c_str() + half(s), 3, 0, len(s) - half(s))),
    WRITES(s.Replace(1, 1, s.c_str(), len(s))),
    WRITES(s[0] = s.IsEmpty() ? '\0' : '!'),
    WRITES(s[kAll] = '!'),
    WRITES(s[-1] = '!'),
    WRITES(s = "new text"),
    WRITES(s = s.c_str() + half(s)),
    WRITES(s = static_cast<char const*>(nullptr)),
    MAY_WRITE(s = *&s),
    SUBSTITUTES(kAB, kX, kAll),
    SUBSTITUTES(kX, kAB, 2),
    SUBSTITUTES(kX, kX, 0),
    MAY_WRITE(s.LeftTrim(" a")),
    MAY_WRITE(s.LeftTrim("").RightTrim("")),
    MAY_WRITE(s.RightTrim(" \n")),
    WRITES(s.Trim(" ")),
    WRITES(s.Trim("~")),
    WRITES(s.Reverse()),
    MAY_WRITE(s.ToUpper()),
    MAY_WRITE(s.ToLower()),
    MAY_WRITE(s.Capitalize()),
    MAY_WRITE(s.Uncapitalize()),
    MAY_WRITE(s.Delete()),
    MAY_WRITE(std::as_const(s)[0]),
    MAY_WRITE(s.rfind("b", 1, s.Find("b", 0))),
    MAY_WRITE(s.Substr(1, 2)),
    MAY_WRITE(s.SubstrLength(0, 1)),
    MAY_WRITE(s.extract(1, ' ')),
};

S const kBlanks(250, ' '), kMixed = "aBcDeFgHiJkLmNoPqRs", kLarge = S(300, 'b') + " ab X";
S const kTexts[] = {"", "a", "  abX abX  \n", kMixed, S(238, 'a'), kLarge, kBlanks};

static bool isReplacedInPart(Operation const& op, S const& text, S const& result) {
  S before;
  for (int n = 0;; ++n) {
    Text s = make(1, text);
    op.replaceUpTo(s, n);
    if (textOf(s) == result) return true;
    if (n > 0 && textOf(s) == before) return false;
    before = textOf(s);
  }
}

// The rules of sharing, with the text that comes in a plain string, which the twins hold; and an
// operation that ran out of memory leaves all as it was.
TEST(Strings, OperationsInEveryState) {
  for (int state = 0; state < 70 * static_cast<int>(std::size(kOperations)); ++state) {
    int const kind = state % 5, sharers = 1 + state / 5 % 2;
    S const& text = kTexts[state / 10 % 7];
    Operation const& op = kOperations[state / 70];
    if (kind == 0 && (sharers > 1 || !text.empty())) continue;
    SCOPED_TRACE(picture(op.what, "kind", kind, "sharers", sharers, text));
    Text plain = make(1, text);
    op.run(plain);
    S const expected = textOf(plain);
    auto const work = [&](int k) {
      Text s = make(kind, text);
      Text const other = sharers > 1 ? s : Text();
      bool const hasFailed = fails(k, [&] { op.run(s); });
      bool const mayWrite = kind != 0 && !hasFailed && (op.alwaysWrites || expected != text);
      bool const isFork = sharers > 1 && s.rep != other.rep;
      S const holders = isFork || sharers == 1 ? "|1" : "|2";
      if (hasFailed && op.replaceUpTo != nullptr) {
        ASSERT_TRUE(isReplacedInPart(op, text, textOf(s))) << textOf(s);
        ASSERT_EQ(look(s), textOf(s) + holders);
        ASSERT_EQ(isFork, sharers > 1 && textOf(s) != text);
      } else {
        ASSERT_EQ(look(s), (hasFailed ? text : expected) + holders);
        ASSERT_EQ(isFork, sharers > 1 && mayWrite);
      }
      ASSERT_EQ(look(other), sharers == 1 ? "|1" : text + holders);
    };
    EXPECT_GE(failEach(work), 0);
  }
}

TEST(Strings, SizeClasses) {
  struct {
    int capacity, size;
    int bytes;  // of the last block taken
  } constexpr kRows[] = {
      {0, 20, 32},     {14, 20, 32},    {15, 52, 64},    {46, 52, 64},       {47, 84, 96},
      {110, 116, 128}, {238, 244, 256}, {239, 240, 240}, {1000, 1001, 1001},
  };
  for (auto const& [capacity, size, bytes] : kRows) {
    Text s(capacity, Text::PreSize);
    bool const isInline = s.body == reinterpret_cast<char*>(s.rep + 1);
    EXPECT_EQ(picture(s.rep->size, allocations().lastBytes, isInline),
              picture(size, bytes, capacity <= 238));
    for (int const length : {kMin, -1, 0, 1, size - 1, size, kAll}) {
      s.SetStringLength(length);
      Text().SetStringLength(length);
      EXPECT_EQ(s.length(), z(std::clamp(length, 0, size - 1)));
    }
    char const* const body = s.c_str();
    s.isolate(size - 1);
    EXPECT_EQ(s.c_str(), body) << "room for one byte less: " << capacity;
    s.isolate(size);
    EXPECT_NE(s.c_str(), body) << "no room: " << capacity;
  }
}

// Of a text that was lent only the lender knows the end: a cut can be undone.
TEST(Strings, LengthOfABorrowedText) {
  Text s("a lent text", 6, Text::BorrowText);
  for (auto const& [length, text] :
       {std::pair(0, ""), {11, "a lent text"}, {-1, ""}, {6, "a lent"}}) {
    s.SetStringLength(length);
    EXPECT_EQ(textOf(s), text) << "SetStringLength(" << length << ")";
  }
  EXPECT_EQ(std::as_const(s)[6], '\0') << "the lender's blank is no part of the string";
}

TEST(Strings, SpareBytesAreReadAsTheyAreWritten) {
  Text s("ab");
  s[10] = '!';
  EXPECT_EQ(std::as_const(s)[10], '!');
  EXPECT_EQ(std::as_const(s)[s.rep->size], '\0') << "behind the body";
}

TEST(Strings, NullAndEmpty) {
  for (Text const& s :
       {Text(), Text(""), Text(static_cast<char const*>(nullptr)), Text(kAB.extract(7, ',')),
        Text(Text("").Erase(0, kAll)), Text(atr_StringFromText(nullptr))})
    EXPECT_TRUE(s.rep == nullptr && s.c_str() == atr_emptyText);
  for (Text const& s :
       {Text("", 0), Text(kX.Substr(1, 5)), Text(Text().Substr(0, 0)), Text(Text() + Text()),
        Text(Text("a").Erase(0, 1)), Text(kX.Substr(SIZE_MAX, SIZE_MAX))})
    EXPECT_TRUE(s.rep != nullptr && s.rep->size == 20 && s.IsEmpty());
}

TEST(Strings, NothingIsLookedForAtNoText) {
  EXPECT_EQ(kAB.rfind(nullptr, 0, 5), 2);
  EXPECT_EQ(kAB.rfind(nullptr, 1, 0), 2);
}

TEST(Strings, SharingAndMoving) {
  Text a("text"), b(a);
  b = a;
  EXPECT_EQ(look(a), "text|2");
  Text c(std::move(b));
  EXPECT_EQ(b.rep, nullptr);
  a = static_cast<Text&&>(a);
  EXPECT_EQ(look(a) + look(b) + look(c), "text|2|1text|2");
  b = std::move(c);
  EXPECT_EQ(look(a + a) + look(a) + look(c), "texttext|1text|2|1");
  EXPECT_TRUE(c.rep == nullptr);
  atr_StringBasePrv working(a);
  EXPECT_EQ(look(a) + look(atr_StringFromBase(working).c_str()), "text|3text|1");
  working.Append("longer", 2).Append(kX) += "!";
  EXPECT_EQ(picture(working.c_str(), look(a)), "textloX! text|2");
  EXPECT_EQ(picture(working.Compare("textl\xE9"), working.Compare("text")), "-1 1");
  EXPECT_EQ(working.Substitute(kX, kAB, SIZE_MAX).Clear().Compare(""), 0) << "a count of -1";
}

TEST(Strings, MissingMemoryForLongTexts) {
  Text s("ab"), adopted = make(4, "a");
  EXPECT_THROW(s.isolate(kAll), std::bad_alloc);
  EXPECT_THROW(s.append("x", kAll, 0, kAll), std::bad_alloc);
  EXPECT_THROW(s.Substitute("a", "aa", kAll), std::bad_alloc);
  EXPECT_THROW(s.Substitute("a", Text("aa\0", 3), kAll), std::bad_alloc) << "at once";
  EXPECT_THROW(Text(s.body, kAll, Text::AdoptBlock), std::bad_alloc);
  EXPECT_EQ(make(4, "a").length() +
                Text(static_cast<char*>(::operator new(1)), kAll - 1, Text::AdoptBlock).length(),
            z(kAll));
  Text lent("text", kAll, Text::BorrowText);
  EXPECT_EQ(lent.length(), z(kAll));
  EXPECT_THROW(lent[0], std::bad_alloc) << "one byte more than a body of our own can have";
  EXPECT_STREQ(Text("//").Substitute("/", "/", kAll).Substitute("/", "\\", kAll).c_str(), "\\\\");
  failAllocation(0);
  EXPECT_THROW(Text(adopted.body, 1, Text::AdoptBlock), std::bad_alloc) << "still the caller's";
  EXPECT_EQ(look(s) + look(adopted), "ab|1a|1");
}

// The text of a pattern ends at its NUL, its length does not; and no state of the string and no
// summary may change what comes out.
TEST(Strings, SubstituteOfTextsWithNuls) {
  auto const substitute = [](S const& from, S const& to, bool isShared, bool hasSummary) {
    atr_StringSummary record{};
    Text s("xMyz");
    Text const share = isShared ? s : Text();
    atr_summary = hasSummary ? &record : nullptr;
    s.Substitute(make(1, from), make(1, to), 9);
    atr_summary = nullptr;
    return textOf(s);
  };
  std::tuple<char const*, S, S, S> const rows[] = {
      {"both", "M\0"s, "wwwww\0"s, "xwwwww\0z"s},
      {"of one length", "M\0"s, "w\0"s, "xw\0z"s},
      {"in the pattern, which comes again", "M\0"s, "wM", "xwwwwwwwwwM"},
      {"in the replacement", "M", "w\0"s, "xw\0yz"s},
  };
  for (auto const& [where, from, to, expected] : rows) {
    for (int state = 0; state < 4; ++state) {
      EXPECT_EQ(substitute(from, to, state % 2 == 1, state > 1), expected)
          << where << (state % 2 == 1 ? ", shared" : "") << (state > 1 ? ", with a summary" : "");
    }
  }
}

TEST(Strings, Numbers) {
  EXPECT_EQ(
      picture(Text(kMin).c_str(), Text(UINT_MAX).c_str(), Text(0.1F).c_str(), Text(1e-12).c_str(),
              Text(1e105).c_str(), Text(-1.2345678901234567e-300).c_str()),
      "-2147483648 4294967295 0.1 1e-12 1e+105 -1.23456789012346e-300");
  for (char const* const locale : {ATR_TEST_LATIN1, ATR_TEST_WIDE_POINT}) {
    Locale const set(locale);
    EXPECT_EQ(textOf(Text(-1.25e-20)), "-1"s + std::localeconv()->decimal_point + "25e-20");
  }
}

TEST(Strings, Fields) {
  struct {
    char const* text;
    int index;
    char const *plain, *unescaped;  // the field, and with the backslash as escape
  } const rows[] = {
      {"a,b,c", 0, "a", "a"},
      {"a,b,c", 2, "c", "c"},
      {"a,b,c", 3, "", ""},
      {"", 0, "", ""},
      {"a,,c", 1, "", ""},
      {"a,,c", 2, "c", "c"},
      {",x", 0, "", ""},
      {",x", 1, "x", "x"},
      {"a,", 1, "", ""},
      {"a,b", -1, "", ""},
      {"a,b", kMin, "", ""},
      {"a\\b", 0, "a\\b", "ab"},
      {"a\\\\b", 0, "a\\\\b", "a\\b"},
      {"a\\,b", 1, "b", "b"},
      {"a\\\\\\b", 0, "a\\\\\\b", "a\\b"},
      {"a\\,b", 0, "a\\", "a"},
      {"\\", 0, "\\", ""},
  };
  for (auto const& [text, index, plain, unescaped] : rows) {
    EXPECT_STREQ(Text(text).extract(index, ',').c_str(), plain) << text << index;
    EXPECT_STREQ(Text(text).extract(index, ',', '\\').c_str(), unescaped) << text << index;
  }
  std::mt19937 random(5);  // byte by byte
  for (unsigned n = 0; n < 5000; ++n) {
    S text(random() % 50, 'a');
    for (char& c : text) c = random() % 40 == 0 ? '\0' : "ab,"[random() % (n % 5 + 1) % 3];
    int const index = static_cast<int>(random() % 8);
    char const* p = text.c_str();
    for (int left = index; *p != '\0' && left != 0; ++p) left -= *p == ',' ? 1 : 0;
    EXPECT_EQ(textOf(Text(text.data(), static_cast<int>(text.size())).extract(index, ',')),
              S(p, std::strcspn(p, ",")));
  }
  EXPECT_EQ(look(Text("a,b").extract(0, 0)) + look(Text("a,b").extract(1, 0)), "a,b|1|1");
  EXPECT_NE(Text(Text("\\").extract(0, ',', '\\')).rep, nullptr);
}

// As printf has it in each rounding mode, also what is no number.
static void isPrintedAsByTheRuntime(double value) {
  constexpr std::pair<int, char const*> kModes[] = {{FE_TONEAREST, "to the nearest"},
                                                    {FE_UPWARD, "upward"},
                                                    {FE_DOWNWARD, "downward"},
                                                    {FE_TOWARDZERO, "toward zero"}};
  auto const narrow = static_cast<float>(value);
  for (auto const& [mode, name] : kModes) {
    char full[40], general[40];
    std::fesetround(mode);
    std::snprintf(full, sizeof full, "%.15g", value);
    std::snprintf(general, sizeof general, "%g", static_cast<double>(narrow));
    S const texts = picture(Text(value).c_str(), Text(narrow).c_str());
    std::fesetround(FE_TONEAREST);
    ASSERT_EQ(texts, picture(full, general)) << "rounding " << name;
  }
}

TEST(Strings, NumbersFollowTheRuntime) {
  std::mt19937_64 random(4);
  double const nan = std::nan("");
  for (double const value : {nan, -nan, HUGE_VAL, -HUGE_VAL, 0.0, -0.0, 0.1, 2.5, 999999.5, 1e-310})
    isPrintedAsByTheRuntime(value);
  for (int n = 0; n < 20000; ++n) isPrintedAsByTheRuntime(std::bit_cast<double>(random()));
}

// Both ways beside printf: bits, short and long decimals, powers, midpoints.
TEST(Strings, GeneralForm) {
  std::mt19937_64 random(4);
  auto const same = [](double value) {
    for (int const precision : {1, 6, 15}) {
      char text[24], expected[40];
      std::snprintf(expected, sizeof expected, "%.*g", precision, value);
      EXPECT_EQ(S(text, atr::printGeneral(text, value, precision)), expected);
      EXPECT_EQ(S(text, atr::printGeneralExactly(text, value, precision)), expected);
    }
  };
  for (int n = 0; n < 20000; ++n) {
    auto const decimal = static_cast<double>(static_cast<long long>(random() >> (n % 60 + 4)));
    auto const bits = std::bit_cast<double>(random());
    same(std::isnan(bits) ? 0.0 : bits);
    same((n % 2 == 0 ? decimal : -decimal) * std::pow(10, n % 40 - 20));
    same((decimal + 0.5) / std::exp2(n % 30));
    same(std::exp2(n % 2140 - 1075));
  }
  for (double const value :
       {0.0, -0.0, 0.1, 9.5, 999999.5, 99999.95, 9.99999999999999e22, 1e15, 1e-5, HUGE_VAL})
    same(value);
}
