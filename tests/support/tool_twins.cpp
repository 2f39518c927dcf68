// The twin of atr-dict: what it says of a dictionary, beside what the library makes of the same
// file.
#include <clocale>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>

#include "atr/frame/platform.h"
#include "checks.h"
#include "dictionary.h"
#include "failure.h"
#include "format_dictionary.h"
#include "support/twins.h"

using namespace test;

namespace {

struct TempDictionary {
  explicit TempDictionary(std::string_view bytes) {
    std::ofstream(path, std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
  }
  ~TempDictionary() { std::filesystem::remove(path); }
  S const path = (std::filesystem::temp_directory_path() /
                  ("atr_dict." + std::to_string(reinterpret_cast<std::uintptr_t>(this))))
                     .string();
};

struct LoadedTable {
  explicit LoadedTable(S const& path) {
    std::FILE* const file = atr::platform::openText(path.c_str());
    atr_trReadDictionary(file);
    std::fclose(file);
    if (atr_trTable.count > 0) atr_trTable.sort();
  }
  ~LoadedTable() { atr_trReleaseDB(); }
};

S inLocale(std::string_view utf8) {
  S text(utf8);
  S out(4 * text.size() + 1, '\0');
  int const bytes = atr_utf8_to_encoding(EncodingLocale, octets(out), octets(text), '?');
  return bytes < 0 ? "(no UTF-8)" : S(out.c_str());
}

// The text of each key; the tool's in the encoding of the locale.
using Texts = std::map<S, S>;

Texts textsOf(TranslationTable const& table) {
  Texts texts;
  for (int i = 0; i < table.count; ++i) {
    texts[table.entries[i].key] = textOf(atr_raw(table.entries[i].key));
  }
  return texts;
}

Texts textsOf(dict::Dictionary const& d) {
  Texts texts;
  for (dict::Entry const& entry : d.entries) {
    bool const isShown = entry.fate == dict::Fate::stored && !entry.isShadowed;
    if (isShown) texts[S(entry.key)] = inLocale(entry.text);
  }
  return texts;
}

S pictureOf(Texts const& texts) {
  S result;
  for (auto const& [key, text] : texts) result += "{" + key + "=" + text + "}";
  return result;
}

void same(S const& actual, S const& expected, char const* where) {
  if (actual != expected) throw Difference{where, expected, actual};
}

// The values that a message takes, by the library's own templates.
int valuesOf(std::string_view text) {
  atr_translate const message((S(text) + "\\@no such tail").c_str());
  int count = 0;
  while (message.Format(count + 1) != nullptr) ++count;
  return count;
}

// A code page's best fit may make a conversion's letter of an accented one. ASCII has none.
struct WithoutBestFit {
  WithoutBestFit() { std::setlocale(LC_ALL, "C"); }
  ~WithoutBestFit() { std::setlocale(LC_ALL, before.c_str()); }
  S const before = std::setlocale(LC_ALL, nullptr);
};

// A value that is missing or one too many is told, and nothing else is.
void compareValues(dict::Dictionary const& d) {
  WithoutBestFit const scope;
  dict::Findings findings(d, {});
  dict::checkConversions(findings);
  std::map<std::size_t, S> told;  // by line
  for (dict::Finding const& finding : findings.sorted()) {
    bool const isMissing = finding.rule == dict::Rule::missingConversion;
    if (isMissing || finding.rule == dict::Rule::extraConversion)
      told[finding.line] = isMissing ? "missing" : "extra";
  }
  for (dict::Entry const& entry : d.entries) {
    bool const isRule = entry.key == "\\@plural";
    bool const hasTail = entry.text.find("\\@") != S::npos;
    if (entry.fate != dict::Fate::stored || isRule || hasTail) continue;
    std::string_view const key = dict::withoutTail(entry.key);
    int const more = valuesOf(entry.text) - valuesOf(key);
    bool const isPlain = valuesOf(key) == 0 && key.find('%') != S::npos;
    if (isPlain) continue;  // perhaps text, whose percent signs are meant
    same(told[entry.line],
         more < 0   ? "missing"
         : more > 0 ? "extra"
                    : "",
         "the values of an entry");
  }
}

void checks(std::string_view bytes) {
  TempDictionary const file(bytes);
  LoadedTable const table(file.path);
  S const shown = pictureOf(textsOf(atr_trTable));
  try {
    dict::Dictionary const d = dict::readDictionary(file.path);
    same(pictureOf(textsOf(d)), shown, "check");
    compareValues(d);
    auto const formatted = dict::formatted(d);
    if (!formatted) return;
    TempDictionary const after(*formatted);
    dict::Dictionary const again = dict::readDictionary(after.path);
    same(pictureOf(textsOf(again)), shown, "fmt");
    same(dict::formatted(again).value_or("nothing"), *formatted, "fmt of its own form");
  } catch (dict::Failure const& failure) {
    same(shown, "", failure.what());
  }
}

}  // namespace

std::span<Twin const> test::twins() {
  static Twin const all[] = {{"checks",
                              checks,
                              {"msg['",
                               "'] = r'",
                               "'\n",
                               "'\r\n",
                               "'",
                               "\n",
                               "\\n",
                               "\\101",
                               "\xC3\xA9",
                               "\xC3",
                               "a",
                               "b",
                               "%d",
                               "%2$s",
                               "%",
                               "\\@",
                               "\\xE9",
                               "\\0",
                               "#",
                               "msg['a'] = r'x'\n",
                               "msg['%s%d'] = r'%d %s'\n",
                               S(1, '\0'),
                               S(4100, 'x')},
                              2}};
  return all;
}
