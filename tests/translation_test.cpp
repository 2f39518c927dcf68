// Translation: the file, the table, the lookup and the environment that selects them.
#include <clocale>
#include <cstring>
#include <filesystem>
#include <thread>

#include "atr/atr.h"
#include "atr/frame/memory.h"
#include "atr/frame/platform.h"
#include "atr/translation/dictionary_reader.h"
#include "atr/translation/message_lookup.h"
#include "atr/translation/translation_table.h"
#include "support/allocation_watch.h"
#include "support/support.h"

using namespace test;

namespace {

constexpr char kInvalid[] = "WARNING: atr: Invalid UTF-8 string.\n";
constexpr char kEncoding[] = "WARNING: atr: Failure encoding in the current locale.\n";

// The table as a picture: {key=text}{key=text}, sorted.
std::string table() {
  std::string picture;
  for (int i = 0; i < atr_trTable.count; ++i) {
    picture +=
        "{" + std::string(atr_trTable.entries[i].key) + "=" + atr_trTable.entries[i].text + "}";
  }
  return picture;
}

// Reads a dictionary of these bytes and answers the table and what was warned about.
std::string readDictionary(std::string_view bytes) {
  TempFile const file("dictionary", bytes);
  std::FILE* const stream = atr::platform::openText(file.path().c_str());
  testing::internal::CaptureStderr();
  atr_trReadDictionary(stream);
  std::fclose(stream);
  atr_trSort();
  std::string picture = table() + testing::internal::GetCapturedStderr();
  atr_trReleaseDB();
  EXPECT_EQ(mem_status().blocksInUse, 0);
  return picture;
}

std::string warning(char const* text, std::string const& key) {
  return text + ("\"" + key + "\"\n\n");
}

void setTranslated(std::string const& file, char const* locale) {
  setVariable("ZELTRA_SUPPORTED_LOCALE", "1");
  setVariable("ZELTRA_TRANSLATION_DICTIONARY", file.c_str());
  setVariable("ZELTRA_LANG", locale);
  setVariable("ZEL_PATH", tempFolder().c_str());
}

}  // namespace

TEST(Translation, DictionaryRows) {
  std::string const longText(8191 - 11, 'v');  // the piece "msg['k'] = r'" + text fills the buffer
  std::tuple<char const*, std::string, std::string> const rows[] = {
      {"empty", "", ""},
      {"no marker", "# comment\n\nmsg['a'] = 'b'\n", ""},
      {"an entry", "msg['Open'] = r'Abrir'\n", "{Open=Abrir}"},
      {"sorted by bytes", "['\xC3'] = r'1'\n['z'] = r'2'\n['za'] = r'3'\n[''] = r''\n",
       "{=}{z=2}{za=3}{\xC3=1}"},
      {"file order among equals", "['a'] = r'1'\n['a'] = r'2'\n", "{a=1}{a=2}"},
      {"no newline at the end", "msg['a'] = r'xy'", "{a=x}"},
      {"the closing is not looked at", "msg['a'] = r'xy' # note\n", "{a=xy' # not}"},
      {"a newline is the value", "msg['a'] = r'\n", "{a=\n}"},
      {"no value", "msg['a'] = r'", "{a=}"},
      {"a marker in the value", "['a'] = r'b'] = r'c'\n", "{a=b'] = r'c}"},
      {"quotes", "['it's'] = r'c'est'\n", "{it's=c'est}"},
      {"a key ends at the marker", "['a\\'] = r'b'\n", "{a\\=b}"},
      {"escapes in both", "['a\\n\\@x'] = r'\\x41\\'\\@'\n", "{a\n\\@x=A'\\@}"},
      {"UTF-8 from escapes", "['a'] = r'\\xC3\\xA9\\303\\251'\n", "{a=\xE9\xE9}"},
      {"a NUL ends key and value", "['a\\0b'] = r'c\\x00q'\n", "{a=c}"},
      {"line ends of both kinds", "['a'] = r'1'\r\n['b'] = r'2'\n", "{a=1}{b=2}"},
      {"the marker's own quote, alone", "'] = r'x'\n", ""},
      {"the marker's own quote", "'] = r'\xFFx'\n'] = r'x'\n['a'] = r'1'\n'] = r'x'", "{a=1}"},
      {"only bad values warn of nothing", "['a'] = r'\xFF'\n", ""},
      {"a bad value", "['a%s\\n'] = r'\xFF'\n['b'] = r'1'\n",
       "{b=1}" + warning(kInvalid, "a%s\\n")},
      {"bad behind its escapes", "['a'] = r'\\777'\n['b'] = r'\\xE9'\n",
       warning(kInvalid, "a") + warning(kInvalid, "b")},
      {"a character cut at the end", "['a'] = r'1'\n['b'] = r'x\xC3\xA9z",
       "{a=1}" + warning(kInvalid, "b")},
      {"accepted only once cut", "['a'] = r'1'\n['b'] = r'x\xFF\xFF", "{a=1}"},
      {"a line in pieces", "['k'] = r'" + longText + "xy'\n", "{k=" + longText.substr(1) + "}"},
      {"CR LF over the buffer's end", "['k'] = r'" + longText.substr(1) + "'\r\n['b'] = r'1'\n",
       "{b=1}{k=" + longText.substr(1) + "}"},
      {"a NUL in a line", std::string("['a'] = r'1'\0x\n['b'] = r'2'\n", 28), "{a=}{b=2}"},
  };
  Locale const locale(ATR_TEST_LATIN1);
  for (auto const& [what, bytes, result] : rows) EXPECT_EQ(readDictionary(bytes), result) << what;
}

TEST(Translation, DictionaryInOtherEncodings) {
  auto const readAtSite = [](char const* site) {
    setVariable("ZELTRA_SITE", site);
    std::setlocale(LC_ALL, ATR_TEST_SJIS);
    auto const both = warning(kEncoding, "a") + warning(kEncoding, "b") + warning(kInvalid, "b");
    std::string const text = "['a'] = r'\xC4\x80'\n['b'] = r'\xC4\x80\\xE9'\n";
    EXPECT_EQ(readDictionary(text),
              "{a=?}" + (std::strcmp(site, "qdn") == 0 ? both : warning(kInvalid, "b")));
    setVariable("ZELTRA_SITE", "changed");
    EXPECT_EQ(readDictionary("['a'] = r'\xC4\x80'\n"),
              "{a=?}" + (std::strcmp(site, "qdn") == 0 ? warning(kEncoding, "a") : ""));
  };
  EXPECT_FRESH("", readAtSite("qdn"));
  EXPECT_FRESH("", readAtSite("QDN"));
  std::string const bytes = "['a'] = r'\xC4\x80 \xC4\x80'\n['b'] = r'\xE3\x82\xBD\xE3\x83\xBC'\n";
  for (auto const& [name, result] :
       {std::pair(ATR_TEST_SJIS, "{a=? ?}{b=\x83\x5C\x81\x5B}"), {"C", "{a=? ?}{b=??}"}}) {
    Locale const locale(name);
    EXPECT_EQ(readDictionary(bytes), result) << name;
  }
}

TEST(Translation, Lookup) {
  static TranslationEntry entries[] = {
      {const_cast<char*>("Open"), const_cast<char*>("first")},
      {const_cast<char*>("Open"), const_cast<char*>("last")},
      {const_cast<char*>("Open\\@menu"), const_cast<char*>("a\\@b\xFF")},
      {const_cast<char*>("empty"), const_cast<char*>("")}};
  std::string const longKey(100000, '\xE9');
  std::tuple<char const*, char const*, std::string, bool, std::string> const rows[] = {
      {"no table", "C", "abc", false, "abc"},
      {"only a tail", "C", "\\@x", false, ""},
      {"the last of equals", "C", "Open", true, "last"},
      {"the whole key, and its text untouched", "C", "Open\\@menu", true, "a\\@b\xFF"},
      {"another tail", "C", "Open\\@other", true, "Open"},
      {"an empty text", "C", "empty", true, ""},
      {"no form", ATR_TEST_SJIS, "\xC4\x80 \xE3\x82\xBD\\@x\xE9", true, "? \x83\x5C"},
      {"no UTF-8", ATR_TEST_SJIS, "\xE9\\@x", true, "\xE9"},
      {"no UTF-8, long", ATR_TEST_LATIN1, longKey, true, longKey},
      {"a NUL comes out", ATR_TEST_LATIN1, "a\xC0\x80\xC3\xA9", false, "a"},
      {"nothing but a NUL", ATR_TEST_LATIN1, "\xC0\x80", false, ""},
      {"UTF-8", ATR_TEST_LATIN1, "%d \xC3\xA9", false, "%d \xE9"},
  };
  for (auto const& [what, locale, key, hasTable, text] : rows) {
    Locale const set(locale);
    atr_trTable = hasTable ? TranslationTable{entries, 4} : TranslationTable{nullptr, 0};
    Allocations const before = allocations();
    atr_String const result = atr_raw(key.c_str());
    EXPECT_LE(allocations().taken - before.taken, 2) << what;
    EXPECT_EQ(std::string(result.c_str(), result.length()), text) << what;
    EXPECT_EQ(result.c_str() == atr_emptyText, text.empty()) << what;
  }
  atr_trTable = {nullptr, 0};
  EXPECT_EQ(atr_raw(nullptr).c_str(), atr_emptyText);
}

TEST(Translation, CompareAndRelease) {
  char const* const keys[] = {"", "a", "ab", "z", "\xC3"};
  for (auto const& a : keys) {
    for (auto const& b : keys) {
      TranslationEntry const x = {const_cast<char*>(a), nullptr},
                             y = {const_cast<char*>(b), nullptr};
      EXPECT_EQ(atr_trCompareKeys(&x, &y), (&a > &b) - (&a < &b)) << a << ' ' << b;
    }
  }
  for (int i = 0; i < 2; ++i) {
    atr_trTable = {
        i == 0 ? static_cast<TranslationEntry*>(mem_Calloc(3, sizeof(TranslationEntry))) : nullptr,
        -1};
    atr_trReleaseDB();
    EXPECT_EQ(atr_trTable.entries, nullptr);
    EXPECT_EQ(atr_trTable.count, 0);
    EXPECT_EQ(mem_status().blocksInUse, 0);
  }
}

// One process after another, since locale and environment are the process's own.
TEST(Translation, LocaleAndSearch) {
  std::string const sep = atr::platform::directorySeparator;
  std::string const list(1, atr::platform::listSeparator);
  auto const set = [](char const* supported, char const* dictionary, char const* path,
                      char const* first) {
    setVariable("ZELTRA_SUPPORTED_LOCALE", supported);
    setVariable("ZELTRA_TRANSLATION_DICTIONARY", dictionary);
    setVariable("ZELTRA_LANG", ATR_TEST_SJIS);
    setVariable("ZEL_PATH", path);
    setVariable("QMR_DICT_DIR", first);
  };
  auto const search = [&](bool isTranslated, std::string const& expected) {
    atr_String path("unchanged");
    std::setlocale(LC_ALL, "C");
    char walk[] = "a b";
    std::strtok(walk, " ");
    EXPECT_EQ(atr_setlocale(&path), !expected.empty());
    EXPECT_EQ(atr_setlocale(nullptr), !expected.empty());
    EXPECT_STREQ(std::strtok(nullptr, " "), "b") << "a client's own walk goes on";
    EXPECT_STREQ(path.c_str(), expected.empty() ? "unchanged" : expected.c_str());
    EXPECT_STREQ(std::getenv("ZLT_LC_ALL"), std::setlocale(LC_ALL, nullptr));
    EXPECT_STREQ(std::setlocale(LC_CTYPE, nullptr), isTranslated ? ATR_TEST_SJIS : "C");
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
  };
  std::string root = tempFolder();
  TempFile const a("a/x/d.py", ""), b("b/x/d.py", ""),
      d("d/Configuration/Xresources/en_US/en_US_Dict.py", "");
  std::filesystem::create_directories(root + "/c/x/d.py");  // in the way, and no file
  std::string own = root;
  for (char& c : own) c = c == '/' ? sep[0] : c;
  auto const in = [&](char const* folder) { return root + "/" + folder + "///"; };
  std::string const all =
      list + list + in("none") + list + in("c") + list + in("b") + list + in("a") + list;
  std::string const found = own + sep + "b" + sep + "x" + sep + "d.py";
  EXPECT_FRESH("", set(nullptr, nullptr, nullptr, all.c_str()); search(false, ""));
  EXPECT_FRESH("", set("1", "x/d.py", nullptr, all.c_str()); search(true, ""));
  EXPECT_FRESH("", set("1", "x/d.py", (list + list).c_str(), nullptr); search(true, ""));
  EXPECT_FRESH("", set("1", "x/d.py", all.c_str(), nullptr); search(true, found));
  EXPECT_FRESH("", set("1", (std::string(atr::platform::foreignSeparator) + "x/d.py").c_str(),
                       all.c_str(), nullptr);
               search(true, own + sep + "b" + sep + sep + "x" + sep + "d.py"));
  EXPECT_FRESH("", set("1", "x/d.py", in("a").c_str(), all.c_str()); search(true, found));
  EXPECT_FRESH("", set("1", ".", in("a").c_str(), nullptr); search(true, ""));
  EXPECT_FRESH("", set("1", "zero", "/dev", nullptr); search(true, ""));  // a device never ends
  EXPECT_FRESH("", set(nullptr, "x/d.py", all.c_str(), in("d").c_str());
               search(false, own + sep + "d" + sep + "Configuration" + sep + "Xresources" + sep +
                                 "en_US" + sep + "en_US_Dict.py"));
  auto const unknown = [&] {
    set("1", "x", "none", nullptr);
    setVariable("ZELTRA_LANG", "no such locale");
    EXPECT_FALSE(atr_setlocale(nullptr));
    EXPECT_NE(std::getenv("ZLT_LC_ALL"), nullptr);
    EXPECT_STRNE(std::setlocale(LC_CTYPE, nullptr), ATR_TEST_SJIS);
  };
  EXPECT_FRESH("", unknown());
}

TEST(Translation, BuildAndReload) {
  auto const run = [] {
    setTranslated("reload.py", ATR_TEST_LATIN1);
    atr_tr_enable(true);
    EXPECT_EQ(atr_trTable.count, -1) << "no file";
    {
      TempFile const file("reload.py", "['b'] = r'B'\n['a'] = r'\xC3\xA9'\n");
      atr_tr_enable(true);
      EXPECT_EQ(atr_trTable.count, -1) << "tried, and not again";
      atr_tr_enable(false);
      EXPECT_STREQ(atr_raw("a").c_str(), "a");
      atr_tr_enable(true);
      EXPECT_EQ(table(), "{a=\xE9}{b=B}");
    }
    atr_trBuildDB();
    EXPECT_EQ(table(), "{a=\xE9}{b=B}") << "built, and not again";
    TempFile const file("reload.py", "['a'] = r'\xC4\x80\xE3\x82\xBD'\n");
    setVariable("ZELTRA_LANG", ATR_TEST_SJIS);
    atr_tr_enable(false);
    atr_tr_enable(true);
    EXPECT_EQ(table(), "{a=?\x83\x5C}");
    atr_trReleaseDB();
    EXPECT_EQ(mem_status().blocksInUse, 0);
  };
  EXPECT_FRESH("", run());
}

TEST(Translation, BuildWithoutMemory) {
  auto const run = [] {
    TempFile const file("memory.py", "['a'] = r'1'\n['b'] = r'2'\n");
    setTranslated("memory.py", "C");
    int const blocks = failEach([](int k) {
      failAllocation(k);
      try {
        atr_trBuildDB();
      } catch (std::bad_alloc const&) {
        EXPECT_EQ(atr_trTable.count, 0);
      }
      EXPECT_TRUE(hasFailed() || table() == "{a=1}{b=2}");
      atr_trReleaseDB();
      EXPECT_EQ(mem_status().blocksInUse, 0);
    });
    EXPECT_GE(blocks, 8);
  };
  EXPECT_FRESH("", run());
}

// Lookups that run side by side with high bytes share nothing.
TEST(Translation, ParallelLookups) {
  Locale const locale(ATR_TEST_SJIS);
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([] {
      for (int n = 0; n < 2000; ++n)
        ASSERT_STREQ(atr_raw("\xE3\x82\xBD\xC4\x80\\@").c_str(), "\x83\x5C?");
    });
  }
  for (std::thread& thread : threads) thread.join();
}
