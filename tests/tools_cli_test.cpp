// atr-dict as a program: its output, whole, and its exit status. ATR_DICT names the program.
#include <sys/wait.h>

#include "support/support.h"

using namespace test;

namespace {

S const kEntry = "msg['Open'] = r'Öffnen'\n";

// Runs the program in the test's folder, with an environment of these variables alone. The answer
// is what it printed and, in a last line, its exit status.
S run(S const& arguments, S const& variables = "LC_ALL=C.UTF-8") {
  S const command = "cd " + tempFolder() +
                    " && { env -i ASAN_OPTIONS=detect_leaks=0 LOCPATH='" ATR_TEST_LOCPATH
                    "' PATH=/usr/bin:/bin " +
                    variables + " '" ATR_DICT "' " + arguments + " ; } 2>&1";
  std::FILE* const pipe = popen(command.c_str(), "r");
  S output;
  for (int c = 0; (c = std::fgetc(pipe)) != EOF;) output += static_cast<char>(c);
  int const status = pclose(pipe);
  return output + std::to_string(WEXITSTATUS(status)) + "\n";
}

S contentOf(S const& name) {
  std::ifstream file(tempFolder() + "/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

TEST(ToolsRun, CheckTellsAsCompilersDo) {
  TempFile const file("a.py", "msg['ä %d'] = r'b %i'\nmsg['cde'] = r'cde'\n");
  EXPECT_EQ(run("check a.py"),
            "a.py:1:19: error: \"%i\" is no conversion: its value is lost [unknown-conversion]\n"
            "  msg['ä %d'] = r'b %i'\n"
            "                    ^\n"
            "  hint: the letters are E X c d e f g o s u x; flags are - and 0\n"
            "a.py:1:21: error: the text has no place for %d; 0 of 1 values are shown "
            "[missing-conversion]\n"
            "  msg['ä %d'] = r'b %i'\n"
            "                      ^\n"
            "  hint: values go by rank: what remains moves up\n"
            "a.py:2:16: warning: the text is the key [untranslated]\n"
            "  msg['cde'] = r'cde'\n"
            "                 ^\n"
            "errors: 2, warnings: 1\n"
            "1\n");
  S const quiet = "check --disable unknown-conversion --disable missing-conversion ";
  EXPECT_EQ(run(quiet + "--format json a.py"),
            "{\"file\":\"a.py\",\"line\":2,\"column\":16,\"severity\":\"warning\",\"rule\":"
            "\"untranslated\",\"message\":\"the text is the key\",\"hint\":\"\"}\n0\n");
  EXPECT_EQ(run(quiet + "--strict --format github a.py"),
            "::warning file=a.py,line=2,col=16,title=untranslated::the text is the key\n1\n");
  EXPECT_EQ(run("check a.py", "LC_ALL=de_DE.ISO-8859-1").find("a.py:1:19: Fehler: "), 0U);
}

TEST(ToolsRun, CheckAgainstCharsetReferenceAndKeys) {
  TempFile const file("a.py", kEntry + "msg['Pay'] = r'Zahlen: € €'\n");
  TempFile const reference("r.py", "msg['Open'] = r'Ouvrir'\nmsg['Close'] = r'Fermer'\n");
  TempFile const list("keys", "Open\tfound\nPay\n");
  EXPECT_EQ(run("check --charset ISO-8859-1 --disable punctuation-differs a.py"),
            "a.py:2:24: error: ISO-8859-1 lacks \"€\" (U+20AC), which shows as ? "
            "[not-in-charset]\n"
            "  msg['Pay'] = r'Zahlen: € €'\n"
            "                         ^\n"
            "errors: 1, warnings: 0\n1\n");
  EXPECT_EQ(run("check --charset NONE a.py"),
            "atr-dict: NONE: the system does not know this charset\n2\n");
  EXPECT_EQ(run("check --reference r.py a.py"),
            "a.py:2:6: warning: nobody asks for this key [unused-key]\n"
            "  msg['Pay'] = r'Zahlen: € €'\n"
            "       ^\n"
            "a.py: error: the key \"Close\" is not there [missing-key]\n"
            "errors: 1, warnings: 1\n1\n");
  EXPECT_EQ(run("check --keys keys a.py"), "0\n");
}

TEST(ToolsRun, WhatCannotRunSaysWhyAndForWhichFile) {
  TempFile const file("good.py", kEntry), huge("long.py", "");
  std::filesystem::resize_file(huge.path, std::uintmax_t{1} << 30);  // zeros, which take no room
  std::tuple<char const*, S> const rows[] = {
      {"check none.py", "atr-dict: none.py: No such file or directory\n2\n"},
      {"check .", "atr-dict: .: Is a directory\n2\n"},
      {"check /dev/null", "atr-dict: /dev/null: this is no regular file\n2\n"},
      {"check none.py good.py", "atr-dict: none.py: No such file or directory\n2\n"},
      {"pseudo good.py -o none/a.py", "atr-dict: none/a.py: No such file or directory\n2\n"},
      {"rules >/dev/full", "atr-dict: standard output: No space left on device\n2\n"},
      {"pseudo good.py -o /dev/full", "atr-dict: /dev/full: No space left on device\n2\n"},
      {"check long.py",
       "atr-dict: long.py: line 1 has more than a megabyte; this is no dictionary\n2\n"},
      {"rules >&-", "atr-dict: standard output: Bad file descriptor\n2\n"},
      {"check", "FILE is required\nRun with --help or --help-all to learn more.\n2\n"},
  };
  for (auto const& [arguments, output] : rows) EXPECT_EQ(run(arguments), output) << arguments;
  EXPECT_EQ(run("check good.py"), "0\n");
  S const german = "LC_ALL=de_DE.ISO-8859-1";
  S const more = "\nMehr erfahren Sie mit --help oder --help-all.\n2\n";
  EXPECT_EQ(run("chekc", german), "Dieses Argument wird nicht erwartet: chekc" + more);
  EXPECT_EQ(run("check --format xml a", german),
            "--format: xml ist nicht in {github,json,text}" + more);
  EXPECT_EQ(run("stats --require 101 a", german), "--require: \"101\" ist kein Prozentsatz" + more);
  S const help = run("rules --help", german);
  EXPECT_EQ(help.substr(0, help.find("  -h")),
            "Nennt die Regeln von check\nAufruf: atr-dict rules [OPTIONEN]\n\nOptionen:\n");
}

TEST(ToolsRun, FmtStatsAndPseudo) {
  TempFile const file("a.py", "x['a\\x41\\@b'] = r'\\303\\226ffnen\\xC2\\xA0\\041'\r\n# note\r\n");
  TempFile const cut("cut.py", "msg['a'] = r'xy'");
  EXPECT_EQ(run("fmt --check a.py"), "a.py: not in its form; run atr-dict fmt\n1\n");
  EXPECT_EQ(run("fmt a.py"), "0\n");
  EXPECT_EQ(contentOf("a.py"), "msg['aA\\@b'] = r'Öffnen\\302\\240!'\n# note\n");
  EXPECT_EQ(run("fmt --check a.py"), "0\n");
  EXPECT_EQ(run("fmt cut.py"),
            "cut.py: left as it is, since texts are lost; see atr-dict check\n1\n");
  EXPECT_EQ(contentOf("cut.py"), "msg['a'] = r'xy'");

  TempFile const keys("keys", "aA\\@b\nOther\n");
  EXPECT_EQ(run("stats a.py --keys keys --require 60"),
            "a.py: 50.0% translated (1), missing 1, unused 0, suspicious 1\n"
            "a.py: less than the 60.0% that are required\n1\n");
  TempFile const source("s.py", "msg['Copy %d files?\\@menu'] = r'x %d?'\n");
  EXPECT_EQ(run("pseudo s.py -o -"),
            "msg['Copy %d files?\\@menu'] = r'ソーÇópý %d fílés ööö?'\n0\n");
}

TEST(ToolsRun, PluralForms) {
  S const rule = "msg['\\@plural'] = r'n%10==1 && n%100!=11 ? 0 : 1'\n";
  S const one = "msg['%d file\\@plural0'] = r'a %d'\n";
  S const others = "msg['%d files\\@plural0'] = r'a %d'\nmsg['%d files\\@plural1'] = r'b %d'\n";
  std::tuple<char const*, S, S> const rows[] = {
      {"all forms", rule + one + others, ""},
      {"a rule that is broken", "msg['\\@plural'] = r'n = 1'\n", "plural-rule"},
      {"a rule that divides by zero", "msg['\\@plural'] = r'1 / n'\n", "plural-rule"},
      {"a form that is missing", rule + one + others.substr(0, others.find('\n') + 1),
       "missing-plural"},
      {"no form of 1", "msg['%d files\\@plural1'] = r'b %d'\n", "missing-plural"},
      {"a form too many", rule + one + others + "msg['%d files\\@plural2'] = r'c %d'\n",
       "superfluous-plural"},
      {"a form without its value", rule + one.substr(0, one.size() - 4) + "'\n" + others,
       "missing-conversion"},
  };
  for (auto const& [what, bytes, found] : rows) {
    TempFile const file("p.py", bytes);
    S const output = run("check p.py");
    EXPECT_EQ(output == "0\n", found.empty()) << what << '\n' << output;
    EXPECT_NE(output.find(found), S::npos) << what << '\n' << output;
  }
}

// Each failure is named by its cause, in the first hint.
TEST(ToolsRun, ExplainNamesTheCause) {
  TempFile const file("d.py", kEntry + "msg['Open\\@menu'] = r'Auf'\nmsg['a\\nb'] = r'c'\n");
  TempFile const unreadable("secret.py", kEntry), empty("empty.py", "nothing\n");
  std::filesystem::permissions(unreadable.path, std::filesystem::perms::none);
  std::filesystem::create_directories(tempFolder() + "/folder.py");
  auto const start = [](S const& dictionary, S const& language = "C.UTF-8") {
    return "ZELTRA_SUPPORTED_LOCALE=1 ZELTRA_TRANSLATION_DICTIONARY=" + dictionary +
           " ZELTRA_LANG=" + language + " ZEL_PATH=. ";
  };
  bool const isRoot = geteuid() == 0;  // who may read everything
  S const asNobody = isRoot ? " setpriv --reuid=65534 --clear-groups" : "";
  std::tuple<char const*, S, S, S> const rows[] = {
      {"a variable is missing", "ZELTRA_SUPPORTED_LOCALE=1 ZEL_PATH=.", "Open",
       "ZELTRA_TRANSLATION_DICTIONARY is not set, so the default dictionary counts"},
      {"no search path", "ZELTRA_SUPPORTED_LOCALE=1 ZELTRA_TRANSLATION_DICTIONARY=d.py ", "Open",
       "ZEL_PATH is not set, so nothing is searched"},
      {"not readable", start("secret.py") + asNobody, "Open",
       "./secret.py does not open: Permission denied"},
      {"a folder in its place", start("folder.py"), "Open",
       "./folder.py does not open: Is a directory"},
      {"an empty table", start("empty.py"), "Open",
       "the dictionary has no entry that can be read; run atr-dict check ./empty.py"},
      {"a locale that is not there", start("d.py", "xx_XX"), "Open",
       "the locale \"xx_XX\" is not installed, so \"en_US.UTF-8\" stays"},
      {"an ASCII locale", start("d.py", "C"), "Open",
       "the locale has ASCII alone, so every other character becomes ?"},
      {"no such key", start("d.py"), "Nothing", "the dictionary has no entry for \"Nothing\""},
      {"another tail", start("d.py"), "'Open\\@state'", "the tail differs: line 1 has \"Open\""},
      {"another escape", start("d.py"), "'a\\\\nb'", "an escape differs: line 3 has \"a\\nb\""},
      {"another blank", start("d.py"), "'Open '",
       "a blank or the case differs: line 1 has \"Open\""},
  };
  std::filesystem::permissions(tempFolder(), std::filesystem::perms::all);
  for (auto const& [what, variables, key, hint] : rows) {
    S const output = run("explain " + key, variables);
    EXPECT_NE(output.find("hints, the likely cause first:\n  " + hint + "\n"), S::npos)
        << what << '\n'
        << output;
    EXPECT_TRUE(output.ends_with("\n1\n")) << what;
  }
  EXPECT_EQ(run("explain 'Open\\@menu'", start("d.py")),
            "mode: translated\n"
            "  ZELTRA_SUPPORTED_LOCALE: \"1\"\n"
            "  ZELTRA_TRANSLATION_DICTIONARY: \"d.py\"\n"
            "locale: C.UTF-8, UTF-8, up to 6 bytes a character\n"
            "  setlocale(LC_ALL, \"en\"): not installed\n"
            "  setlocale(LC_ALL, \"en_US\"): not installed\n"
            "  setlocale(LC_ALL, \"en_US.UTF-8\"): \"en_US.UTF-8\"\n"
            "  setlocale(LC_CTYPE, \"C.UTF-8\"): \"C.UTF-8\"\n"
            "  setlocale(LC_NUMERIC, \"C\"): \"C\"\n"
            "dictionary: ./d.py\n"
            "  ZEL_PATH: \".\"\n"
            "  ./d.py: found\n"
            "entries: 3\n"
            "\"Open\\@menu\": \"Auf\"\n"
            "  from the table\n"
            "0\n");
}

#ifdef ATR_TEST_EXAMPLE
// The example is one with plural forms, which here has no text for a folder that cannot be read.
TEST(ToolsRun, RecordListsWhatARunAsksFor) {
  S const example = "'" ATR_TEST_EXAMPLE "' none";
  TempFile const file("d.py",
                      "msg['\\@plural'] = r'n > 1'\nmsg['Contents of %s'] = r'Inhalt von %s'\n"
                      "msg['%d files, %s in all\\@plural0'] = r'nichts (%d, %s)'\n"
                      "msg['%d files, %s in all\\@plural1'] = r'%d Dateien, %s'\n");
  S const start =
      "LC_ALL=C.UTF-8 ZELTRA_SUPPORTED_LOCALE=1 ZELTRA_TRANSLATION_DICTIONARY=d.py ZEL_PATH=.";
  S const list =
      "Cannot read %s: %s\tmissing\nContents of %s\tfound\n%u B\tmissing\n\\@plural\tfound\n"
      "%d files, %s in all\\@plural0\tfound\n%d place could not be read\\@plural0\tmissing\n";
  EXPECT_EQ(run("record -o keys -- " + example, start),
            "Cannot read none: No such file or directory\nInhalt von none\nnichts (0, 0 B)\n"
            "1 place could not be read\n1\n");
  EXPECT_EQ(contentOf("keys"), list);
  EXPECT_EQ(run("record -- " + example + " 2>&- | tail -n 6", start), list + "0\n");
  EXPECT_EQ(run("stats --keys keys d.py"),
            "d.py: 50.0% translated (3), missing 3, unused 0, suspicious 0\n0\n");
  // A child is seen, and what it asked for is kept when its parent dies.
  EXPECT_EQ(run("record -o child -- sh -c \"" + example + " >&- 2>&-; kill -9 \\$\\$\"", start),
            "atr-dict: sh: ended by signal 9 (Killed)\n137\n");
  EXPECT_EQ(contentOf("child"), list);
  std::tuple<char const*, S> const rows[] = {
      {"record -- sh -c 'exit 7' [a,b] -x",
       "atr-dict: sh: it asked for no key of a shared library; one that is linked statically is "
       "not "
       "seen\n7\n"},
      {"record -- /sbin/ldconfig -V >&-",
       "atr-dict: /sbin/ldconfig: nothing can be recorded: it is linked statically, or runs with "
       "other rights\n2\n"},
      {"record -- ./none", "atr-dict: ./none: No such file or directory\n2\n"},
  };
  for (auto const& [arguments, output] : rows) EXPECT_EQ(run(arguments), output) << arguments;
}
#endif

#if ATR_TEST_HAS_PO
// There and back keeps every text, and gettext's own programs take what is written.
TEST(ToolsRun, PoThereAndBack) {
  std::mt19937 random(5);
  for (int n = 0; n < 15; ++n) {
    S bytes =
        "# heading\n\nmsg['\\@plural'] = r'n%10==1 && n%100!=11 ? 0 : n%10>=2 && n%10<=4 && "
        "(n%100<10 || n%100>=20) ? 1 : 2'\n# about the next\n";
    for (int i = 0; i < 40; ++i) {
      S const id = std::to_string(i);
      char const* const ends[] = {"", ".", "\\n", "\\\"quoted\\\"", "\\\\", "\\t|", " %d %s", "%%"};
      char const* const tails[] = {"", "", "\\@menu", "\\@"};
      S const end = ends[random() % std::size(ends)];
      S const key = "Key " + id + end + tails[random() % std::size(tails)];
      bytes += "msg['" + key + "'] = r'Größe " + id + end + "'\n";
      if (i % 10 != 0) continue;
      bytes += "msg['%d file " + id + "\\@plural0'] = r'%d a" + id + "'\n";
      for (char const form : {'0', '1', '2'}) {
        bytes += "msg['%d files " + id + "\\@plural" + form + "'] = r'%d " +
                 (form == '0' ? 'a' : form) + id + "'\n";
      }
    }
    TempFile const file("de_Dict.py", bytes);
    ASSERT_EQ(run("fmt de_Dict.py"), "0\n");
    ASSERT_EQ(run("check --strict de_Dict.py"), "0\n") << bytes;
    ASSERT_EQ(run("to-po de_Dict.py -o de.po"), "0\n");
    ASSERT_EQ(run("from-po de.po -o back.py; msgfmt -c -o /dev/null de.po"), "0\n");
    S const rule = "msg['\\@plural'] = r'nplurals=3; plural=";
    S back = contentOf("back.py"), there = contentOf("de_Dict.py");
    auto const sorted = [](S const& text) {
      std::multiset<S> lines;
      std::istringstream in(text);
      for (S line; std::getline(in, line);)
        if (!line.empty() && line.find("@plural'") == S::npos) lines.insert(line);
      return lines;
    };
    ASSERT_EQ(sorted(back), sorted(there)) << back;
    EXPECT_NE(back.find(rule), S::npos);
  }
}

TEST(ToolsRun, PoTellsWhatItCannotSay) {
  TempFile const file("de_Dict.py",
                      "msg[''] = r'x'\nmsg['a'] = r''\nmsg['%d f\\@plural0'] = r'1 %d'\n"
                      "msg['%d fs\\@plural0'] = r'2 %d'\nmsg['%d fs\\@plural1'] = r'3 %d'\n"
                      "msg['\\@plural'] = r'n%2 ? 0 : 1'\n");
  EXPECT_EQ(run("to-po de_Dict.py -o de.po"),
            "de_Dict.py:1: left out: PO has no place for an empty key\n"
            "de_Dict.py:2: left out: an empty text counts as untranslated in PO\n"
            "de_Dict.py:3: left out: PO has one text for this form, and takes that of the other "
            "numbers\n1\n");
  TempFile const fuzzy("f.po",
                       "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n"
                       "#, fuzzy\nmsgid \"a\"\nmsgstr \"b\"\n");
  EXPECT_EQ(run("from-po f.po -o -"), "0\n");
  EXPECT_EQ(run("from-po --fuzzy f.po -o -"), "msg['a'] = r'b'\n0\n");
  TempFile const broken("b.po", "msgid \"a\n"), huge("long.po", "\n");
  std::filesystem::resize_file(huge.path, std::uintmax_t{1} << 30);
  EXPECT_EQ(run("from-po long.po -o c.py"),
            "atr-dict: long.po: line 2 has more than a megabyte; this is no PO file\n2\n");
  EXPECT_EQ(run("from-po b.po -o c.py").substr(0, 15), "atr-dict: b.po:");
  EXPECT_FALSE(std::filesystem::exists(tempFolder() + "/c.py"));
  TempFile const pot("x.pot", "msgid \"Open\\\\@menu\"\nmsgstr \"\"\n");
  EXPECT_EQ(run("to-pot x.pot -o y.pot"), "0\n");
  EXPECT_EQ(contentOf("y.pot"), "msgctxt \"menu\"\nmsgid \"Open\"\nmsgstr \"\"\n");
  TempFile const menu("m.py", "msg['Open\\@menu'] = r'x'\n");
  EXPECT_EQ(run("check --keys y.pot m.py"), "0\n");
}
#endif
