// Translation: the file, the table, the lookup and the environment that selects them.
#include <future>
#include <thread>

#include "atr/frame/platform.h"
#include "atr/translation/key_index.h"
#include "atr/translation/line_reader.h"
#include "atr/translation/message_lookup.h"
#include "support/support.h"

using namespace test;

constexpr char kInvalid[] = "WARNING: atr: Invalid UTF-8 string.\n";
constexpr char kEncoding[] = "WARNING: atr: Failure encoding in the current locale.\n";
static S warning(char const* text, S const& key) { return text + ("\"" + key + "\"\n\n"); }

// The table that a dictionary of these bytes makes, and what is warned about.
static S read(std::string_view bytes) {
  TempFile const file("dictionary", bytes);
  std::FILE* const stream = atr::platform::openText(file.path.c_str());
  testing::internal::CaptureStderr();
  S const table = readDictionary(stream);
  std::fclose(stream);
  return table + testing::internal::GetCapturedStderr();
}

TEST(Translation, DictionaryRows) {
  S const text(8191 - 11, 'v');  // the piece "msg['k'] = r'" + text fills the buffer
  auto const bad = [](char const* key) { return warning(kInvalid, key); };
  struct {
    char const* what;
    S bytes;
    S result;  // the table and the warnings
  } const rows[] = {
      {"empty", "", ""},
      {"no marker", "# comment\n\nmsg['a'] = 'b'\n", ""},
      {"an entry", "msg['Open'] = r'Abrir'\n", "{Open=Abrir}"},
      {"sorted by bytes", "['\xC3'] = r'1'\n['z'] = r'2'\n['za'] = r'3'\n[''] = r''\n",
       "{=}{z=2}{za=3}{\xC3=1}"},
      {"file order among equals", "['a'] = r'1'\n['a'] = r'2'\n", "{a=1}{a=2}"},
      {"no newline", "msg['a'] = r'xy'", "{a=x}"},
      {"the closing is not looked at", "['a'] = r'xy' # note\n", "{a=xy' # not}"},
      {"only a newline", "['a'] = r'\n", "{a=\n}"},
      {"no value", "msg['a'] = r'", "{a=}"},
      {"a marker in the value", "['a'] = r'b'] = r'c'\n", "{a=b'] = r'c}"},
      {"quotes", "['it's'] = r'c'est'\n", "{it's=c'est}"},
      {"a key ends at the marker", "['a\\'] = r'b'\n", "{a\\=b}"},
      {"escapes in both", "['a\\n\\@x'] = r'\\x41\\'\\@'\n", "{a\n\\@x=A'\\@}"},
      {"escapes in the key alone", "['a\\x41'] = r'b'\n", "{aA=b}"},
      {"no strict UTF-8", "['a'] = r'\xED\xA0\x80'\n", "{a=?}"},
      {"UTF-8 from escapes", "['a'] = r'\\xC3\\xA9\\303\\251'\n", "{a=\xE9\xE9}"},
      {"a NUL ends both", "['a\\0b'] = r'c\\x00q'\n", "{a=c}"},
      {"a marker alone", "'] = r'x'\n", ""},
      {"a marker first", "'] = r'\xFFx'\n'] = r'x'\n['a'] = r'1'\n'] = r'x'", "{a=1}"},
      {"only bad values warn of nothing", "['a'] = r'\xFF'\n", ""},
      {"accepted once cut", "['a'] = r'1'\n['b'] = r'x\xFF\xFF", "{a=1}"},
      {"a bad value", "['a%s\\n'] = r'\xFF'\n['b'] = r'1'\n", "{b=1}" + bad("a%s\\n")},
      {"bad behind its escapes", "['a'] = r'\\777'\n['b'] = r'\\xE9'\n", bad("a") + bad("b")},
      {"a character cut at the end", "['a'] = r'1'\n['b'] = r'x\xC3\xA9z", "{a=1}" + bad("b")},
      {"a line in pieces", "['k'] = r'" + text + "xy'\n", "{k=" + text.substr(1) + "}"},
      {"CR LF over the end", "['k'] = r'" + text.substr(1) + "'\r\n['b'] = r'1'\n",
       "{b=1}{k=" + text.substr(1) + "}"},
      {"a NUL in a line", "['a'] = r'1'\0x\n['b'] = r'2'\n"s, "{a=}{b=2}"},
  };
  Locale const locale(ATR_TEST_LATIN1);
  for (auto const& [what, bytes, result] : rows) EXPECT_EQ(read(bytes), result) << what;
}

// Lines and their pieces, over many buffers and twice, beside a cut of the whole text.
TEST(Translation, Lines) {
  std::mt19937 random(3);
  for (int n = 0; n < 60; ++n) {
    S text;
    for (unsigned const longest = n % 2 == 0 ? 90 : 12000; random() % 40 != 0;) {
      char const* const ends[] = {"\n", "\r\n", "\r", "\r\r\n", "\n\n"};
      text += S(random() % 9 == 0 ? 8190 : random() % longest, 'x') + ends[random() % 5];
      if (n % 3 == 0) text += '\0';
      if (n % 7 == 0 && random() % 20 == 0) text += '\x1A';  // which ends a text in text mode
    }
    if (n == 0) text = S(8190, 'x') + "\n\n\n" + S(8190, 'x') + "\r\n";  // the LF is still to come
    TempFile const file("lines", text);
    std::FILE* const stream = atr::platform::openText(file.path.c_str());
    bool const areJoined = atr::platform::hasTextMode;
    if (areJoined) text.resize(std::min(text.find('\x1A'), text.size()));
    for (std::size_t at = 0; areJoined && (at = text.find("\r\n", at)) != text.npos;)
      text.erase(at, 1);
    std::ptrdiff_t bytes = 0;
    atr::LineReader lines(stream);
    for (int pass = 0; pass < 2; ++pass, lines.rewind()) {
      bool const isBroken = n % 4 > 1 && std::fputc('x', stream) == EOF;  // open to read alone
      for (std::size_t at = 0; at < text.size();) {
        std::size_t const end = std::min({text.find('\n', at), text.size() - 1, at + 8190}) + 1;
        S line = text.substr(at, end - at);
        if (isBroken && line.size() < 8191 && !line.ends_with('\n')) break;
        at += line.size();
        if (!areJoined && line.ends_with("\r\n")) line.replace(line.size() - 2, 2, "\n");
        if (!areJoined && line.size() == 8191 && line.back() == '\r' && text[at] == '\n')
          line.back() = text[at++];
        char const* const got = lines.next(bytes);
        ASSERT_STREQ(got, line.c_str()) << at;
        ASSERT_EQ(static_cast<std::size_t>(bytes), std::strlen(got));
      }
      ASSERT_EQ(lines.next(bytes), nullptr);
    }
    std::fclose(stream);
  }
}

TEST(Translation, DictionaryInOtherEncodings) {
  auto const run = [](char const* site) {
    setVariable("ZELTRA_SITE", site);
    std::setlocale(LC_ALL, ATR_TEST_SJIS);
    auto const tell = [&](S const& key) { return site == "qdn"s ? warning(kEncoding, key) : ""; };
    EXPECT_EQ(read("['a'] = r'\xC4\x80'\n['b'] = r'\xC4\x80\\xE9'\n"),
              "{a=?}" + tell("a") + tell("b") + warning(kInvalid, "b"));
    setVariable("ZELTRA_SITE", "changed");
    EXPECT_EQ(read("['a'] = r'\xC4\x80'\n"), "{a=?}" + tell("a"));
  };
  EXPECT_FRESH("", run("qdn"));
  EXPECT_FRESH("", run("QDN"));
}

TEST(Translation, Lookup) {
  char open[] = "Open", first[] = "first", last[] = "last", menu[] = "Open\\@menu";
  char untouched[] = "a\\@b\xFF", none[] = "empty", empty[] = "";
  TranslationEntry entries[] = {{open, first}, {open, last}, {menu, untouched}, {none, empty}};
  S const longKey(100000, '\xE9');
  auto const *const kWest = ATR_TEST_LATIN1, *const kEast = ATR_TEST_SJIS;
  struct {
    char const *what, *locale;
    S key;
    bool hasTable;
    S text;
  } const rows[] = {
      {"no table", "C", "abc", false, "abc"},
      {"only a tail", "C", "\\@x", false, ""},
      {"the last of equals", "C", "Open", true, "last"},
      {"the whole key, and its text untouched", "C", menu, true, untouched},
      {"another tail", "C", "Open\\@x", true, "Open"},
      {"two tails", "C", "a\\b\\@c\\@d", false, "a\\b"},
      {"an empty text", "C", none, true, ""},
      {"no form", kEast, "\xC4\x80 \xE3\x82\xBD\\@x\xE9", true, "? \x83\x5C"},
      {"no UTF-8", kEast, "\xE9\\@x", true, "\xE9"},
      {"no UTF-8, long", kWest, longKey, true, longKey},
      {"a NUL comes out", kWest, "a\xC0\x80\xC3\xA9", false, "a"},
      {"nothing but a NUL", kWest, "\xC0\x80", false, ""},
      {"a NUL of three bytes", kWest, "\xC3\xA9\xE0\x80\x80z", false, "\xE9"},
      {"no NUL, but its last bytes", kEast, "\xE3\x80\x80z", false, "\x81\x40z"},
      {"a NUL, and no UTF-8 behind it", kWest, "a\xC0\x80\xFF", false, "a\xC0\x80\xFF"},
      {"UTF-8", kWest, "%d \xC3\xA9", false, "%d \xE9"},
  };
  for (auto const& [what, locale, key, hasTable, text] : rows) {
    Locale const set(locale);
    atr_trTable = {entries, hasTable ? 4 : 0};
    int const taken = allocations().taken;
    atr_String const result = atr_raw(key.c_str());
    int const blocks = text.empty() ? 0 : text.size() <= 238 ? 1 : 2;  // those of the result
    EXPECT_EQ(allocations().taken - taken, blocks) << what;
    EXPECT_EQ(textOf(result), text) << what;
    EXPECT_EQ(result.c_str() == atr_emptyText, text.empty()) << what;
  }
  atr_trTable = {nullptr, 0};
  EXPECT_EQ(atr_raw(nullptr).c_str(), atr_emptyText);
  Locale const west(kWest);
  for (std::size_t bytes = 0; bytes < 20; ++bytes) {
    S const text(bytes, 'a');
    EXPECT_EQ(textOf(atr_raw((text + "\xC3\xA9").c_str())), text + "\xE9");
    EXPECT_EQ(textOf(atr_raw(("\xC3\xA9" + text).c_str())), "\xE9" + text);
  }
}

// What large tables have beside the plain sort and search, also for keys made to collide, and
// without the memory for it.
TEST(Translation, LargeTables) {
  std::mt19937 random(1);
  int next = 0;
  auto const mixed = [&](int i) {
    S key(random() % 12, 'a'), same(random() % 3 * 9, i % 2 == 0 ? 'x' : 'a');
    for (char& c : key) c = "ab\xC3\x7F"[random() % 4];
    return same + key;
  };
  auto const atHome = [&](unsigned home) {
    while (atr::hashOf(std::to_string(++next)) % 2048 != home) continue;
    return std::to_string(next);
  };
  struct {
    char const* what;
    int count;
    std::function<S(int)> makeKey;
  } const families[] = {
      {"short and alike", 3000, mixed},
      {"all of one home", 400, [&](int) { return atHome(0); }},
      {"home by home", 300, atHome},
      {"one key", 100, [](int) { return "same"; }},
      {"a prefix", 2000, [](int i) { return "Tooltip_" + std::to_string(i); }},
      {"numbers", 2000, [](int i) { return "E." + std::to_string(10000 + i); }},
  };
  for (auto const& [what, count, makeKey] : families) {
    SCOPED_TRACE(what);
    std::vector<std::pair<S, S>> pairs;  // the texts are the places in the file
    for (int i = 0; i < count; ++i) pairs.emplace_back(makeKey(i), std::to_string(i));
    for (int const others : {0, 1, 2, 99}) {
      std::vector<TranslationEntry> entries;
      for (auto& [key, text] : pairs) entries.push_back({key.data(), text.data()});
      auto expected = entries;
      std::ranges::stable_sort(expected, {}, [](auto const& e) { return S(e.key); });
      TranslationTable table = {entries.data(), count};  // the vector owns the entries
      EXPECT_TRUE(fails(others, [&] { table.sort(); }) || others > 1);
      EXPECT_EQ(picture(table), picture({expected.data(), count}));
      for (auto& [key, text] : pairs) ASSERT_EQ(table.find(key + "?").data(), nullptr);
      table.index.clear();
      table.index.build(entries.data(), count);
      EXPECT_EQ(table.index.isEmpty(), count == 400) << count;
      table.index.clear();
    }
  }
}

// Ends a process that waits for ever, as for the writer of a pipe.
static void endAfterAMinute() {
  std::thread([] {
    std::this_thread::sleep_for(std::chrono::minutes(1));
    std::fputs("still waiting after a minute", stderr);
    std::_Exit(1);
  }).detach();
}

// One process after another, since locale and environment are the process's own.
TEST(Translation, LocaleAndSearch) {
  S const list(1, atr::platform::listSeparator), root = tempFolder();
  auto const search = [&](char const* locale, S const& expected) {
    atr_String path("unchanged");
    std::setlocale(LC_ALL, "C");
    char walk[] = "a b";
    std::strtok(walk, " ");
    EXPECT_EQ(atr_setlocale(&path), expected != "unchanged");
    EXPECT_EQ(atr_setlocale(nullptr), expected != "unchanged");
    EXPECT_STREQ(std::strtok(nullptr, " "), "b") << "a client's own walk goes on";
    EXPECT_EQ(textOf(path), expected);
    EXPECT_STREQ(std::getenv("ZLT_LC_ALL"), std::setlocale(LC_ALL, nullptr));
    EXPECT_STREQ(std::setlocale(LC_CTYPE, nullptr), locale);
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
  };
  TempFile const a("a/x/d.py", ""), b("b/x/d.py", ""),
      d("d/Configuration/Xresources/en_US/en_US_Dict.py", "");
  std::filesystem::create_directories(root + "/c/x/d.py");  // in the way, and no file
  bool const hasPipes = atr::platform::directorySeparator[0] == '/';
  ASSERT_TRUE(!hasPipes || std::system(("mkfifo '" + root + "/a/pipe'").c_str()) == 0);
  auto const in = [&](S const& folder) { return root + "/" + folder + "///"; };
  auto const native = [](std::filesystem::path p) { return p.make_preferred().string(); };
  S const all = list + list + in("none") + list + in("c") + list + in("b") + list + in("a") + list;
  struct {
    S supported, file, path, first;  // the folder that is searched before the path
    S found;
  } const rows[] = {
      {"-", "-", "-", all, "unchanged"},
      {"1", "x/d.py", "-", all, "unchanged"},
      {"1", "x/d.py", list + list, "-", "unchanged"},
      {"1", "x/d.py", all, "-", native(b.path)},
      {"1", "x/d.py", in("a"), all, native(b.path)},
      {"1", atr::platform::foreignSeparator + "x/d.py"s, all, "-", native(root + "/b//x/d.py")},
      {"1", ".", in("a"), "-", "unchanged"},
      {"1", "zero", "/dev", "-", "unchanged"},  // a device never ends
      {"1", hasPipes ? "pipe" : "none", in("a"), "-",
       "unchanged"},  // and a pipe waits for its writer
      {"-", "x/d.py", all, in("d"), native(d.path)},
  };
  for (auto const& [supported, file, path, first, found] : rows)
    EXPECT_FRESH("", endAfterAMinute(); setEnvironment(supported, file, ATR_TEST_SJIS, path, first);
                 search(supported == "1" ? ATR_TEST_SJIS : "C", found));
  EXPECT_FRESH("", setEnvironment("1", "x", "no such locale", "none", "-");
               search(atr::platform::englishLocale, "unchanged"));
}

TEST(Translation, BuildAndReload) {
  auto const run = [] {
    setEnvironment("1", "reload.py", ATR_TEST_LATIN1, tempFolder(), "-");
    atr_tr_enable(true);
    EXPECT_EQ(atr_trTable.count, -1) << "no file";
    TempFile const file("reload.py", "['b'] = r'B'\n['a'] = r'\xC3\xA9'\n");
    atr_tr_enable(true);
    EXPECT_EQ(atr_trTable.count, -1) << "tried, and not again";
    atr_tr_enable(false);
    EXPECT_STREQ(atr_raw("a").c_str(), "a");
    atr_tr_enable(true);
    TempFile const other("reload.py", "['a'] = r'\xC4\x80\xE3\x82\xBD'\n");
    atr_trBuildDB();
    EXPECT_EQ(picture(atr_trTable), "{a=\xE9}{b=B}") << "built, and not again";
    setVariable("ZELTRA_LANG", ATR_TEST_SJIS);
    atr_tr_enable(false);
    atr_tr_enable(true);
    EXPECT_EQ(picture(atr_trTable), "{a=?\x83\x5C}");
  };
  EXPECT_FRESH("", run());
}

// A client that goes on after the stop shows its own texts.
TEST(Translation, StopReleasesTheTable) {
  TempFile const file("stop.py", "['Done'] = r'Fertig'\n");
  auto const run = [] {
    setEnvironment("1", "stop.py", ATR_TEST_LATIN1, tempFolder(), "-");
    int starts = 0;
    atr_initialize(starts);
    atr_tr_enable(true);
    EXPECT_STREQ(atr_raw("Done").c_str(), "Fertig");
    atr_finalize(starts);
    EXPECT_STREQ(atr_raw("Done").c_str(), "Done");
    EXPECT_EQ(mem_status().blocksInUse, 0);
  };
  EXPECT_FRESH("", run());
}

// Lookups that run side by side with high bytes share nothing.
TEST(Translation, ParallelLookups) {
  Locale const locale(ATR_TEST_SJIS);
  std::future<void> looks[4];
  auto const look = [] {
    for (int n = 0; n < 2000; ++n)
      ASSERT_STREQ(atr_raw("\xE3\x82\xBD\xC4\x80\\@").c_str(), "\x83\x5C?");
  };
  for (auto& each : looks) each = std::async(std::launch::async, look);
}
