// Strings: every operation in every kind of body, shared and not, against std::string.
#include <algorithm>
#include <climits>
#include <cmath>
#include <cstring>
#include <random>

#include "atr/atr.h"
#include "atr/strings/body_room.h"
#include "support/allocation_watch.h"
#include "support/support.h"

using namespace test;
using namespace std::string_literals;

namespace {

constexpr int kAll = 0x7fffffff;

// A string whose representation can be looked at.
struct Text : atr_String {
  using atr_String::atr_String;
  Text(atr_String const& other) : atr_String(other) {}
  atr_StringRep* r() const { return rep; }
  char* b() const { return body; }
  int len() const { return lengthOf(*this); }
};

std::string textOf(atr_String const& s) { return {s.c_str(), s.length()}; }

void expectSound(Text const& s, std::string const& text, int holders) {
  ASSERT_EQ(textOf(s), text);
  ASSERT_EQ(s.c_str()[s.length()], '\0');
  ASSERT_EQ(s.r() == nullptr, s.b() == nullptr);
  if (s.r() == nullptr) return;
  ASSERT_EQ(s.r()->refCount, holders);
  ASSERT_TRUE(s.r()->size == 0 || s.r()->length < s.r()->size);
}

enum class Kind { null, plain, roomy, adopted, borrowed };  // plain is inline or separate

// `text` outlives the string. A null kind reads as empty.
Text make(Kind kind, std::string const& text) {
  int const length = static_cast<int>(text.size());
  if (kind == Kind::null) return {};
  if (kind == Kind::borrowed) return atr_String(text.c_str(), length, atr_String::BorrowText);
  if (kind == Kind::roomy) {
    Text s(atr_String(length + 200, atr_String::PreSize));
    return s.append(text.c_str(), length, 0, kAll);
  }
  if (kind != Kind::adopted) return atr_String(text.c_str(), length);
  auto* const block = static_cast<char*>(::operator new(text.size() + 1));
  std::memcpy(block, text.c_str(), text.size() + 1);
  return atr_String(block, length, atr_String::AdoptBlock);
}

void replaceOnce(std::string& s, std::string_view from, std::string_view to, int times) {
  for (; times > 0 && s.find(from) != s.npos; --times) s.replace(s.find(from), from.size(), to);
}

struct Operation {
  char const* what;
  bool alwaysWrites;  // also where the text stays as it is
  void (*run)(atr_String&);
  void (*model)(std::string&);
};

#define OP(run, model) [](atr_String& s) { run; }, [](std::string& m) { model; }

atr_String const kX("X"), kAB("ab"), kLong(std::string(260, 'q').c_str());
int len(atr_String const& s) { return static_cast<int>(s.length()); }
int half(atr_String const& s) { return len(s) / 2; }
std::size_t one(std::string const& m) { return std::min<std::size_t>(1, m.size()); }

// clang-format off
Operation const kOperations[] = {
    {"append", true, OP(s.append("0123", 4, 1, 2), m += "12")},
    {"append nothing", true, OP(s.append("", 0, 0, kAll), m += "")},
    {"append long", true, OP(s.Append(kLong), m.append(260, 'q'))},
    {"append itself", true, OP(s.Append(s), m += std::string(m))},
    {"append beyond itself", true, OP(s.append(s.c_str(), len(s) + 1, 0, kAll), m += m + "\0"s)},
    {"Erase", true, OP(s.Erase(1, 3), m.erase(one(m), 3))},
    {"Erase all", true, OP(s.Erase(0, kAll), m.clear())},
    {"Erase nothing", true, OP(s.Erase(kAll, 5), m += "")},
    {"insert", true, OP(s.insert(0, "hello", 5, 0, kAll), m.insert(0, "hello"))},
    {"insert nothing", true, OP(s.insert(0, "", 0, 0, 0), m += "")},
    {"insert at end", true, OP(s.insert(kAll, "hello", 5, 3, 1), m += "l")},
    {"insert itself", true, OP(s.insert(1, s.c_str(), len(s), 0, kAll), m.insert(one(m), std::string(m)))},
    {"replace longer", true, OP(s.replace(0, 2, "wxyz", 4, 0, kAll), m.replace(0, 2, "wxyz"))},
    {"replace shorter", true, OP(s.replace(0, 2, "w", 1, 0, kAll), m.replace(0, 2, "w"))},
    {"replace by own end", true, OP(s.replace(0, 1, s.c_str() + half(s), 3, 0, len(s) - half(s)), m.replace(0, 1, std::string(m, m.size() / 2, 3)))},
    {"Replace by own text", true, OP(s.Replace(1, 1, s.c_str(), len(s)), m.replace(one(m), 1, std::string(m)))},
    {"operator[]", true, OP(s[0] = s.IsEmpty() ? '\0' : '!', m.replace(0, one(m), one(m), '!'))},
    {"operator[] outside", true, OP((s[kAll] = '!', s[-1] = '!'), m += "")},
    {"assign", true, OP(s = "new text", m = "new text")},
    {"assign own tail", true, OP(s = s.c_str() + half(s), m = m.substr(m.size() / 2))},
    {"assign null", true, OP(s = static_cast<char const*>(nullptr), m.clear())},
    {"assign itself", false, OP(s = *&s, m += "")},
    {"Substitute", false, OP(s.Substitute(kAB, kX, kAll), replaceOnce(m, "ab", "X", 999))},
    {"Substitute longer", false, OP(s.Substitute(kX, kAB, 2), replaceOnce(m, "X", "ab", 2))},
    {"Substitute never", false, OP(s.Substitute(kX, kX, 0), m += "")},
    {"LeftTrim", false, OP(s.LeftTrim(" a"), m.erase(0, m.find_first_not_of(" a")))},
    {"RightTrim", false, OP(s.RightTrim(" \n"), m.erase(m.find_last_not_of(" \n") + 1))},
    {"trim nothing", false, OP(s.LeftTrim("").RightTrim(""), m += "")},
    {"Trim", true, OP(s.Trim(" "), std::erase(m, ' '))},
    {"Trim nothing", true, OP(s.Trim("~"), m += "")},
    {"ToUpper", false, OP(s.ToUpper(), for (char& c : m) c = static_cast<char>(std::toupper(c)))},
    {"ToLower", false, OP(s.ToLower(), for (char& c : m) c = static_cast<char>(std::tolower(c)))},
    {"Capitalize", false, OP(s.Capitalize(), if (!m.empty()) m[0] = static_cast<char>(std::toupper(m[0])))},
    {"Uncapitalize", false, OP(s.Uncapitalize(), if (!m.empty()) m[0] = static_cast<char>(std::tolower(m[0])))},
    {"Reverse", true, OP(s.Reverse(), std::reverse(m.begin(), m.end()))},
    {"only reading", false, OP((std::as_const(s)[0], s.rfind("b", 1, s.Find("b", 0)), s.Substr(1, 2), s.SubstrLength(0, 1), s.extract(1, ' '), s.Delete()), m += "")},
};
// clang-format on

std::string const kTexts[] = {"",
                              "a",
                              "  abX abX  \n",
                              "aBcDeFgHiJkLmNoPqRs",
                              std::string(238, 'a'),
                              std::string(300, 'b') + " ab X",
                              std::string(250, ' ')};

template <class Visit>
void forEachState(Visit visit) {
  for (Operation const& op : kOperations) {
    for (auto const kind : {Kind::null, Kind::plain, Kind::roomy, Kind::adopted, Kind::borrowed}) {
      for (std::string const& text : kTexts) {
        for (bool const isShared : {false, true}) {
          if (kind == Kind::null && (isShared || !text.empty())) continue;
          SCOPED_TRACE(op.what + (" kind " + std::to_string(int(kind))) + ", shared " +
                       "ny"[isShared] + text);
          visit(op, kind, text, isShared);
        }
      }
    }
  }
}

}  // namespace

TEST(Strings, OperationsInEveryState) {
  forEachState([](Operation const& op, Kind kind, std::string const& text, bool isShared) {
    Text s = make(kind, text);
    Text const other = isShared ? s : Text();
    std::string expected = text;
    op.model(expected);
    op.run(s);
    bool const mayWrite = kind != Kind::null && (op.alwaysWrites || expected != text);
    expectSound(s, expected, isShared && !mayWrite ? 2 : 1);
    if (isShared) expectSound(other, text, mayWrite ? 1 : 2);
    ASSERT_EQ(s.r() == other.r(), isShared ? !mayWrite : s.r() == nullptr);
  });
}

TEST(Strings, OperationsWithoutMemory) {
  forEachState([](Operation const& op, Kind kind, std::string const& text, bool isShared) {
    int const allocations = failEach([&](int k) {
      Text s = make(kind, text);
      Text const other = isShared ? s : Text();
      failAllocation(k);
      try {
        op.run(s);
      } catch (std::bad_alloc const&) {
      }
      if (!hasFailed()) return;
      bool const hasChanged = op.what[0] == 'S' && textOf(s) != text;  // a pass of Substitute
      if (!hasChanged) expectSound(s, text, isShared ? 2 : 1);
      if (isShared) expectSound(other, text, s.r() == other.r() ? 2 : 1);
    });
    ASSERT_GE(allocations, 0);
  });
  Text const adopted = make(Kind::adopted, "a");
  failAllocation(0);
  EXPECT_THROW(Text(adopted.b(), 1, atr_String::AdoptBlock), std::bad_alloc)
      << "still the caller's";
}

TEST(Strings, SizeClasses) {
  constexpr int kRows[][3] = {// capacity, size, bytes of the last block taken
                              {0, 20, 32},     {14, 20, 32},    {15, 52, 64},      {46, 52, 64},
                              {47, 84, 96},    {78, 84, 96},    {79, 116, 128},    {110, 116, 128},
                              {111, 148, 160}, {143, 180, 192}, {175, 212, 224},   {207, 244, 256},
                              {238, 244, 256}, {239, 240, 240}, {1000, 1001, 1001}};
  for (auto const& [capacity, size, bytes] : kRows) {
    Allocations const before = allocations();
    Text s(atr_String(capacity, atr_String::PreSize));
    EXPECT_EQ(s.r()->size, size) << capacity;
    EXPECT_EQ(allocations().lastBytes, bytes) << capacity;
    EXPECT_EQ(allocations().taken - before.taken, capacity > 238 ? 2 : 1) << capacity;
    EXPECT_EQ(s.b() == reinterpret_cast<char*>(s.r() + 1), capacity <= 238) << capacity;
    char const* const body = s.c_str();
    s.isolate(size - 1);
    EXPECT_EQ(s.c_str(), body) << "room for one byte less: " << capacity;
    s.isolate(size);
    EXPECT_NE(s.c_str(), body) << "no room: " << capacity;
  }
}

TEST(Strings, NullAndEmpty) {
  Allocations const before = allocations();
  for (Text const& s :
       {Text(), Text(""), Text(static_cast<char const*>(nullptr)), Text(kAB.extract(7, ',')),
        Text(Text("").Erase(0, kAll)), Text(atr_StringFromText(nullptr))}) {
    EXPECT_EQ(s.r(), nullptr);
    EXPECT_EQ(s.c_str(), atr_emptyText);
  }
  EXPECT_EQ(allocations().taken, before.taken);
  for (Text const& s :
       {Text("", 0), Text(kX.Substr(1, 5)), Text(Text().Substr(0, 0)), Text(Text() + Text()),
        Text(Text("a").Erase(0, 1)), Text(kX.Substr(SIZE_MAX, SIZE_MAX))}) {
    ASSERT_NE(s.r(), nullptr);
    EXPECT_EQ(s.r()->size, 20);
    EXPECT_TRUE(s.IsEmpty());
  }
}

TEST(Strings, SharingAndMoving) {
  Text a("text");
  Text b(a);
  EXPECT_EQ(a.r()->refCount, 2);
  b = a;
  EXPECT_EQ(a.r()->refCount, 2);
  Text c(static_cast<Text&&>(b));
  EXPECT_EQ(b.r(), nullptr);
  a = static_cast<Text&&>(a);
  EXPECT_EQ(a.r()->refCount, 2);
  b = static_cast<Text&&>(c);
  EXPECT_EQ(c.r(), nullptr);
  Text const sum = a + a;
  expectSound(sum, "texttext", 1);
  expectSound(a, "text", 2);
  atr_StringBasePrv working(a);
  EXPECT_EQ(a.r()->refCount, 3);
  expectSound(Text(atr_StringFromBase(working).c_str()), "text", 1);
  working.Append("longer", 2).Append(kX) += "!";
  EXPECT_STREQ(working.c_str(), "textloX!");
  EXPECT_EQ(a.r()->refCount, 2);
  EXPECT_EQ(working.Compare("textl\xE9"), -1);
  EXPECT_EQ(working.Compare("text"), 1);
  EXPECT_EQ(working.Substitute(kX, kAB, SIZE_MAX).Clear().Compare(""), 0) << "a count of -1";
}

TEST(Strings, MissingMemoryForLongTexts) {
  Text s("ab");
  EXPECT_THROW(s.isolate(INT_MAX), std::bad_alloc);
  EXPECT_THROW(s.append("x", INT_MAX, 0, INT_MAX), std::bad_alloc);
  EXPECT_THROW(s.Substitute(Text("a"), Text("aa"), kAll), std::bad_alloc);
  EXPECT_THROW(Text(s.b(), INT_MAX, atr_String::AdoptBlock), std::bad_alloc);
  EXPECT_STREQ(Text("//").Substitute("/", "/", kAll).Substitute("/", "\\", kAll).c_str(), "\\\\");
  expectSound(s, "ab", 1);
}

TEST(Strings, PositionsOutside) {
  constexpr int kNumbers[] = {INT_MIN, -1, 0, 1, 3, 4, INT_MAX};
  for (int const a : kNumbers) {
    for (int const b : kNumbers) {
      Text s("abc");
      auto const at = static_cast<std::size_t>(std::clamp(a, 0, 3));
      auto const n = static_cast<std::size_t>(std::max(b, 0));
      std::string m = "abc";
      EXPECT_EQ(textOf(Text(s).Erase(a, b)),
                m.substr(0, at) + m.substr(std::min<std::size_t>(3, at + n)));
      EXPECT_EQ(textOf(Text(s).insert(a, "xyz", 3, b, 2)),
                std::string(m).insert(at, "xyz", std::min<std::size_t>(n, 3), 2));
      EXPECT_EQ(textOf(Text(s).append("xyz", 3, a, b)), m + std::string("xyz").substr(at, n));
      EXPECT_EQ(s.SubstrLength(a, b),
                std::clamp(3LL - a, static_cast<long long>(INT_MIN), static_cast<long long>(b)));
      EXPECT_EQ(std::as_const(s)[a], a >= 0 && a < 3 ? m[at] : '\0');
      s.SetStringLength(a);
      EXPECT_EQ(s.length(), static_cast<std::size_t>(std::clamp(a, 0, 19)));
      Text().SetStringLength(a);
    }
  }
}

TEST(Strings, Numbers) {
  for (auto const& [s, text] : {std::pair(Text(INT_MIN), "-2147483648"),
                                {Text(UINT_MAX), "4294967295"},
                                {Text(0.1F), "0.1"},
                                {Text(1e-12), "1e-12"},
                                {Text(1e105), "1e+105"},
                                {Text(-1.2345678901234567e-300), "-1.23456789012346e-300"}}) {
    EXPECT_STREQ(s.c_str(), text);
  }
}

TEST(Strings, Fields) {
  char const* const rows[][4] = {// text, index, field, field with backslash as escape
                                 {"a,b,c", "0", "a", "a"},
                                 {"a,b,c", "2", "c", "c"},
                                 {"a,b,c", "3", "", ""},
                                 {"", "0", "", ""},
                                 {"a,,c", "1", "", ""},
                                 {"a,,c", "2", "c", "c"},
                                 {",x", "0", "", ""},
                                 {",x", "1", "x", "x"},
                                 {"a,", "1", "", ""},
                                 {"a,b", "-1", "", ""},
                                 {"a,b", "-2147483648", "", ""},
                                 {"a\\b", "0", "a\\b", "ab"},
                                 {"a\\\\b", "0", "a\\\\b", "a\\b"},
                                 {"a\\,b", "1", "b", "b"},
                                 {"a\\\\\\b", "0", "a\\\\\\b", "a\\b"},
                                 {"a\\,b", "0", "a\\", "a"},
                                 {"\\", "0", "\\", ""}};
  for (auto const& [text, index, plain, unescaped] : rows) {
    EXPECT_STREQ(Text(text).extract(std::stoi(index), ',').c_str(), plain) << text << index;
    EXPECT_STREQ(Text(text).extract(std::stoi(index), ',', '\\').c_str(), unescaped)
        << text << index;
  }
  EXPECT_STREQ(Text("a,b").extract(0, '\0').c_str(), "a,b");
  EXPECT_STREQ(Text("a,b").extract(1, '\0').c_str(), "");
  EXPECT_NE(Text(Text("\\").extract(0, ',', '\\')).r(), nullptr);
}

// Every pair of bytes, between letters, against a walk with the runtime's own mblen.
TEST(Strings, CaseInEveryLocale) {
  for (char const* const name : allLocales()) {
    Locale const locale(name);
    for (int pair = 0x0101; pair <= 0xFFFF; ++pair) {
      if (pair % 256 == 0) continue;
      std::string const text = {'a', static_cast<char>(pair >> 8), static_cast<char>(pair), 'Z',
                                'z'};
      std::string upper = text, lower = text;
      for (std::size_t i = 0; i < text.size();) {
        std::mblen(nullptr, 0);
        int const n = std::mblen(text.c_str() + i, 4);
        int const byte = static_cast<unsigned char>(text[i]);
        if (n <= 1 && std::islower(byte)) upper[i] = static_cast<char>(text[i] - 32);
        if (n <= 1 && std::isupper(byte)) lower[i] = static_cast<char>(text[i] + 32);
        i += static_cast<std::size_t>(std::max(n, 1));
      }
      ASSERT_EQ(textOf(Text(text.c_str(), 5).ToUpper()), upper.substr(0, 5)) << name << ' ' << pair;
      ASSERT_EQ(textOf(Text(text.c_str(), 5).ToLower()), lower.substr(0, 5)) << name << ' ' << pair;
    }
  }
}
