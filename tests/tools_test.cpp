// atr-dict: what it says of a line, and that the library does just that.
#include "check_options.h"
#include "failure.h"
#include "support/support.h"

using namespace test;

namespace {

struct Row {
  char const* what;
  S bytes;
  S findings;  // "LINE:COLUMN rule", a blank between two
};

// The findings of a dictionary of these bytes. Columns are bytes here.
S findingsOf(std::string_view bytes) {
  TempFile const file("rows.py", bytes);
  dict::Dictionary const d = dict::readDictionary(file.path);
  dict::Findings findings(d, {});
  dict::checkAll(findings);
  S result;
  for (dict::Finding const& finding : findings.sorted()) {
    result += result.empty() ? "" : " ";
    result += std::to_string(d.lines[finding.line].number) + ":" + std::to_string(finding.at + 1) +
              " " + dict::infoOf(finding.rule).name;
  }
  return result;
}

// One entry, whose key starts at column 6.
S entry(S const& key, S const& value) { return "msg['" + key + "'] = r'" + value + "'\n"; }

void checkRows(std::initializer_list<Row> rows) {
  for (auto const& [what, bytes, findings] : rows) EXPECT_EQ(findingsOf(bytes), findings) << what;
}

}  // namespace

TEST(Tools, LinesAndTheirVerdicts) {
  S const good = entry("a %d", "b %d");
  S const wide(8191 - 13, 'v');  // fills the reader's line together with msg['k'] = r' and quotes
  checkRows({
      {"nothing is wrong", good, ""},
      {"a comment and a heading", "# about ['x'] =r'y'\n\nMenus\n" + good, ""},
      {"no newline at the end", "msg['a'] = r'xy'", "1:17 cut-value"},
      {"a blank behind the quote", "msg['a'] = r'xy' \n", "1:17 cut-value"},
      {"a note behind the quote", "msg['a'] = r'xy' # note\n", "1:17 cut-value"},
      {"no quote at all", "msg['a'] = r'xy\n", "1:16 cut-value"},
      {"a line that just fits", entry("k", wide.substr(2)), ""},
      {"a line that is cut", entry("k", wide), "1:1 long-line"},
      {"no UTF-8", good + entry("a", "\xFF"), "2:14 invalid-utf8"},
      {"no UTF-8 behind its escapes", good + entry("a", "\\xE9"), "2:14 invalid-utf8"},
      {"an overlong form is UTF-8 here", entry("a", "x\xC1\x81"), ""},
      {"two texts for a key", good + entry("a %d", "c %d"), "2:6 duplicate-key"},
      {"keys are compared decoded", good + entry("\\x61 %d", "c %d"), "2:6 duplicate-key"},
      {"one entry twice", good + good, "2:6 repeated-entry"},
      {"keys that differ by case", good + entry("A %d", "c %d"), "2:6 similar-key"},
      {"keys that differ by a blank", good + entry("a  %d", "c  %d"), "2:6 similar-key"},
      {"a zero byte in the line", "msg['a'] = r'x\0y'\n"s, "1:15 nul"},
      {"a zero byte by an escape", entry("a", "x\\0y"), "1:15 nul"},
      {"a line without a key", good + "'] = r'x'\n", "2:1 no-key"},
      {"typographic quotes", "msg[‘a’] = r‘b’\n", "1:1 look-alike"},
      {"double quotes", "  msg[\"a\"] = r\"b\"\n", "1:3 look-alike"},
      {"a blank too many", "msg['a']  = r'b'\n", "1:1 look-alike"},
      {"no r", "x['a'] = 'b'\n", "1:1 look-alike"},
      {"a live comment", "# msg['a'] = r'b'\n", "1:1 live-comment"},
      {"a comment with a broken marker", "# msg['a'] =r'b'\n", ""},
      {"line ends that differ", "# a\r\n# b\n", "2:4 mixed-line-ends"},
      {"CR LF throughout", "# a\r\nmsg['a'] = r'b'\r\n", ""},
      {"a comment allows a rule", "# atr-dict: allow nul, untranslated\n" + entry("abc", "abc"),
       ""},
      {"a comment allows one line", "# atr-dict: allow untranslated\n" + good + entry("bcd", "bcd"),
       "3:16 untranslated"},
      {"a comment allows no other rule", "# atr-dict: allow nul\n" + entry("abc", "abc"),
       "2:16 untranslated"},
  });
}

TEST(Tools, TextsAndTheirVerdicts) {
  checkRows({
      {"hexadecimal beyond two digits", entry("a", "\\x0041"), "1:14 long-escape"},
      {"two hexadecimal digits", entry("a", "\\x41"), ""},
      {"octal beyond a byte", entry("a", "\\501"), "1:14 long-escape"},
      {"three octal digits", entry("a", "\\3015\\201"), "1:14 invalid-utf8"},
      {"no escape", entry("a", "b\\qc"), "1:15 unknown-escape"},
      {"a tail in a key is none", entry("a\\@b", "c"), ""},
      {"a tail in a text", entry("a\\@b", "c\\@b"), "1:18 tail-in-value"},
      {"a text that is its key", entry("abc", "abc"), "1:16 untranslated"},
      {"a text that is its key but for a tail", entry("abc\\@x", "abc"), "1:19 untranslated"},
      {"nothing to translate", entry("%d kB: %s", "%d kB: %s"), ""},
      {"blanks at the start", entry(" a", "b"), "1:15 blanks-differ"},
      {"blanks at the end", entry("a", "b "), "1:16 blanks-differ"},
      {"punctuation", entry("a.", "b"), "1:15 punctuation-differs"},
      {"punctuation of another script", entry("a.", "b。") + entry("c?", "d？"), ""},
      {"three dots or an ellipsis", entry("a...", "b…"), ""},
      {"a line break that is lost", entry("a\\nb", "c"), "1:17 line-breaks-differ"},
      {"an empty text is meant", entry("a.", ""), ""},
  });
}

TEST(Tools, ConversionsAndTheirVerdicts) {
  checkRows({
      {"other order, by numbers", entry("%d of %s", "%2$s: %1$d"), ""},
      {"width, precision and sizes are free", entry("%d %f", "%-5ld %8.2f"), ""},
      {"one missing", entry("a %d of %s", "b %d"), "1:27 missing-conversion"},
      {"one missing, by numbers", entry("a %d of %s", "b %2$s"), "1:29 missing-conversion"},
      {"one more", entry("a %d", "b %d %s"), "1:22 extra-conversion"},
      {"a letter of printf", entry("a %d", "b %i %d"), "1:19 unknown-conversion"},
      {"a grouping flag", entry("a %d", "b %'d %d"), "1:19 unknown-conversion"},
      {"a blank as flag", entry("a %s", "b % s %s"), "1:19 unknown-conversion"},
      {"a sign as flag", entry("a %d", "b %+d %d"), "1:19 unknown-conversion"},
      {"a width from a value", entry("a %d", "b %*d %d"), "1:19 unknown-conversion"},
      {"a pointer", entry("a %p", "b"), "1:8 unknown-conversion"},
      {"a percent sign that vanishes", entry("a %d", "50% de %d"), "1:19 lost-percent"},
      {"a percent sign at the end", entry("a %d", "%d %"), "1:20 lost-percent"},
      {"the key loses one as well", entry("50% off", "50% de moins"), ""},
      {"a percent sign as it should be", entry("%d%%", "%d %%"), ""},
      {"decimal as hexadecimal", entry("a %d", "b %x"), "1:19 changed-letter"},
      {"a character as a number", entry("a %c", "b %d"), "1:19 changed-letter"},
      {"a fraction as an integer", entry("a %.1f", "b %d"), "1:21 changed-letter"},
      {"integers alike", entry("a %d", "b %u"), ""},
      {"fractions alike", entry("a %f", "b %g"), ""},
      {"a text in the place of a number", entry("a %d", "b %s"), "1:19 changed-kind"},
      {"a number twice", entry("%d %s", "%1$d %1$s"), "1:23 number-order"},
      {"numbers that are no ranks", entry("%d %s", "%3$s %2$d"), "1:23 number-order"},
      {"a width that is cut", entry("a %d", "b %2000d"), "1:19 wide-field"},
      {"a text may be wide", entry("a %s", "b %2000s"), ""},
  });
}

// A good entry is one that a careful translator writes: nothing may be found in a thousand of them.
TEST(Tools, GoodEntriesPass) {
  std::mt19937 random(7);
  S bytes;
  for (int i = 0; i < 1000; ++i) {
    char const* const conversions[] = {"%d", "%s", "%5.1f", "%08x", "%c", "%%", "%u"};
    char const* const ends[] = {"", ".", "?", ":", "\\n", " ", "..."};
    S key = "Key " + std::to_string(i);
    S text = "Größe\\303\\244 " + std::to_string(i);
    for (auto left = random() % 4; left > 0; --left) {
      S const conversion = conversions[random() % std::size(conversions)];
      key += " of " + conversion;
      text += " von " + conversion;
    }
    S const end = ends[random() % std::size(ends)];
    bytes += entry(key + end + (i % 5 == 0 ? "\\@tail" : ""), text + end);
  }
  EXPECT_EQ(findingsOf(bytes), "");
}

TEST(Tools, WhatIsNoDictionaryIsRefused) {
  Row const rows[] = {
      {"binary",
       "\x7F"
       "ELF\0\1"s,
       "binary"},
      {"UTF-16", "\xFF\xFEm\0"s, "UTF-16"},
      {"a line without end", S(3 << 20, 'x'), "megabyte"},
  };
  for (auto const& [what, bytes, reason] : rows) {
    TempFile const file("refused.py", bytes);
    try {
      dict::readDictionary(file.path);
      ADD_FAILURE() << what;
    } catch (dict::Failure const& failure) {
      EXPECT_NE(S(failure.what()).find(reason), S::npos) << failure.what();
      EXPECT_TRUE(S(failure.what()).starts_with(file.path)) << failure.what();
    }
  }
  EXPECT_THROW(dict::readDictionary(tempFolder()), dict::Failure);
  EXPECT_THROW(dict::readDictionary(tempFolder() + "/none"), dict::Failure);
}

// Each rule has its paragraph, under its name.
TEST(Tools, RulesAreDocumented) {
  std::ifstream file(ATR_DICT_DOCUMENT);
  S const text{std::istreambuf_iterator<char>(file), {}};
  for (dict::RuleInfo const& rule : dict::allRules()) {
    EXPECT_NE(text.find("\n### "s + rule.name + "\n"), S::npos) << rule.name;
    EXPECT_EQ(&dict::infoOf(rule.rule), dict::findRule(rule.name)) << rule.name;
  }
}
