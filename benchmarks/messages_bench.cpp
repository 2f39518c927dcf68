// Dictionaries, lookups and messages beside gettext, boost, ICU, fmt and what one would write by
// hand.
#include <atr/atr.h>
#include <atr/message.h>
#include <fmt/args.h>
#include <fmt/format.h>
#include <libintl.h>
#include <unicode/msgfmt.h>
#include <unicode/unistr.h>

#include <boost/format.hpp>
#include <boost/locale.hpp>
#include <clocale>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <unordered_map>

#include "bench.h"

using namespace bench;

namespace {

std::string const folder = std::filesystem::temp_directory_path() / "atr_bench";

std::string key(int i) {
  return "Message number " + std::to_string(i * 7919 % 1000003) + " of the file manager";
}
std::string translation(int i) {
  return "Meldung Nummer " + std::to_string(i) +
         " der Dateiverwaltung, \xC3\xBC"
         "bersetzt";
}

// The same messages as a dictionary and, where a peer asks for it, as a catalogue of gettext.
void makeFiles(int entries, bool isForPeers) {
  std::string const domain = "d" + std::to_string(entries), messages = folder + "/de/LC_MESSAGES/";
  std::filesystem::create_directories(messages);
  std::ofstream dictionary(folder + "/" + domain + ".py"), catalogue(folder + "/" + domain + ".po");
  catalogue << "msgid \"\"\nmsgstr \"Content-Type: text/plain; charset=UTF-8\\n\"\n";
  auto const add = [&](std::string const& k, std::string const& t) {
    dictionary << "msg['" << k << "'] = r'" << t << "'\n";
    catalogue << "msgid \"" << k << "\"\nmsgstr \"" << t << "\"\n";
  };
  add("%1$s: %2$d of %3$d bytes", "%3$d Bytes, davon %2$d von %1$s");
  for (int i = 0; i < entries; ++i) add(key(i), translation(i));
  catalogue.close();
  dictionary.close();
  if (!isForPeers) return;
  if (std::system(
          ("msgfmt -o " + messages + domain + ".mo " + folder + "/" + domain + ".po").c_str()) != 0)
    std::abort();
  bindtextdomain(domain.c_str(), folder.c_str());
}

// Makes the environment ask for these entries; asking twice costs nothing.
void select(int entries) {
  static int selected = -1;
  if (selected == entries) return;
  setenv("ZELTRA_SUPPORTED_LOCALE", "1", 1);
  setenv("ZELTRA_TRANSLATION_DICTIONARY", ("d" + std::to_string(entries) + ".py").c_str(), 1);
  setenv("ZELTRA_LANG", "C.UTF-8", 1);
  setenv("ZEL_PATH", folder.c_str(), 1);
  selected = entries;
}

int loaded = 0;

// Makes these entries the table, or 0 none; asking twice costs nothing.
void load(int entries) {
  if (loaded == entries) return;
  atr_tr_enable(false);
  if (entries > 0) select(entries), atr_tr_enable(true);
  loaded = entries;
}

std::unordered_map<std::string, std::string> loadByHand(int entries) {
  std::unordered_map<std::string, std::string> table;
  std::ifstream file(folder + "/d" + std::to_string(entries) + ".py");
  for (std::string line; std::getline(file, line);) {
    auto const middle = line.find("'] = r'");
    if (middle != line.npos)
      table[line.substr(5, middle - 5)] = line.substr(middle + 7, line.size() - middle - 8);
  }
  return table;
}

void loading(int entries) {
  std::string const name = "load and release " + std::to_string(entries);
  ours(name, [entries] {
    select(entries);
    atr_tr_enable(true);
    atr_tr_enable(false);
    loaded = 0;
  });
  side(name, "getline+unordered_map", 2, [entries] {
    auto table = loadByHand(entries);
    DoNotOptimize(table);
  });
  side(name, "boost::locale .mo", 2, [entries] {
    boost::locale::generator make;
    make.add_messages_path(folder);
    std::string const domain = "d" + std::to_string(entries);
    make.add_messages_domain(domain);
    std::locale const locale = make("de.UTF-8");
    DoNotOptimize(boost::locale::dgettext(domain.c_str(), key(1).c_str(), locale));
  });
}

// The bytes of the dictionary, read and thrown away.
void loadingLimit(int entries) {
  std::string const path = folder + "/d" + std::to_string(entries) + ".py";
  limit("load and release " + std::to_string(entries), [path] {
    static char room[65536];
    std::FILE* const file = std::fopen(path.c_str(), "r");
    while (std::fread(room, 1, sizeof room, file) > 0) DoNotOptimize(room);
    std::fclose(file);
  });
}

void lookups(int entries) {
  static std::vector<std::string> hits[4], misses;
  static std::unordered_map<std::string, std::string> tables[4];
  int const slot = entries == 100 ? 0 : entries == 10000 ? 1 : 2;
  for (int i = 0; i < 256; ++i)
    hits[slot].push_back(key(i * 977 % entries)), misses.push_back("Another " + key(i));
  tables[slot] = loadByHand(entries);
  static unsigned at = 0;
  static std::string const domains[4] = {"d100", "d10000", "d100000"};
  for (bool const isHit : {true, false}) {
    auto const next = [=]() -> std::string const& {
      return (isHit ? hits[slot] : misses)[++at % 256];
    };
    std::string const name =
        std::string(isHit ? "lookup hit " : "lookup miss ") + std::to_string(entries);
    ours(name, [=] {
      load(entries);
      atr_String text = atr_raw(next().c_str());
      DoNotOptimize(text);
    });
    side(name, "gettext+copy", 2, [=] {
      std::string text = dgettext(domains[slot].c_str(), next().c_str());
      DoNotOptimize(text);
    });
    side(name, "unordered_map+copy", 0.9, [=] {
      auto const found = tables[slot].find(next());
      std::string text = found != tables[slot].end() ? found->second : next();
      DoNotOptimize(text);
    });
    blocksLimit(name, 1, 64);
  }
}

void messages() {
  static std::string const text = "%1$s: %2$d of %3$d bytes";
  static int done = 123, all = 456789;
  auto const mine = [] {
    atr_translate message(text.c_str());
    atr_SubstituteFormat(message, 1, "chapter10.txt");
    atr_SubstituteFormat(message, 2, done);
    atr_SubstituteFormat(message, 3, all);
    atr_String result = message.Result();
    DoNotOptimize(result);
  };
  for (bool const isTranslated : {true, false}) {
    std::string const name = isTranslated ? "message, translated" : "message";
    ours(name, [=] {
      load(isTranslated ? 100 : 0);
      mine();
    });
    side(name, "dgettext+snprintf", 1.4, [=] {
      char out[256];
      std::snprintf(out, sizeof out, dgettext(isTranslated ? "d100" : "none", text.c_str()),
                    "chapter10.txt", done, all);
      std::string result = out;
      DoNotOptimize(result);
    });
    side(name, "atr::message, checked", 1, [=] {
      load(isTranslated ? 100 : 0);
      atr_String result =
          atr::message(ATR_T("%1$s: %2$d of %3$d bytes"), "chapter10.txt", done, all);
      DoNotOptimize(result);
    });
    blocksLimit(name, 10, 32);
  }
  side("message", "boost::format", 4, [] {
    std::string result = (boost::format(text) % "chapter10.txt" % done % all).str();
    DoNotOptimize(result);
  });
  side("message", "ICU MessageFormat", 30, [] {
    UErrorCode status = U_ZERO_ERROR;
    icu::MessageFormat format("{0}: {1} of {2} bytes", icu::Locale::getUS(), status);
    icu::Formattable const values[] = {"chapter10.txt", done, all};
    icu::UnicodeString out;
    icu::FieldPosition position;
    format.format(values, 3, out, position, status);
    std::string result;
    DoNotOptimize(out.toUTF8String(result));
  });
  side("message", "fmt at run time", 0.45, [] {
    std::string result =
        fmt::vformat("{0}: {1} of {2} bytes", fmt::make_format_args("chapter10.txt", done, all));
    DoNotOptimize(result);
  });
  static atr_translate slot("%d %s");
  ours("one int into a slot", [] { atr_SubstituteFormat(slot, 1, all); });
  side("one int into a slot", "snprintf", 2, [] {
    char out[32];
    std::snprintf(out, sizeof out, "%d", all);
    DoNotOptimize(out);
  });
  ours("one text into a slot", [] { atr_SubstituteFormat(slot, 2, "chapter10.txt"); });
  side("one text into a slot", "snprintf", 2, [] {
    char out[32];
    static char const* text = "chapter10.txt";
    DoNotOptimize(text);
    std::snprintf(out, sizeof out, "%s", text);
    DoNotOptimize(out);
  });
  blocksLimit("one int into a slot", 1, 24);
  blocksLimit("one text into a slot", 1, 24);
  blocksLimit("atr_raw without a table", 1, 32);
  ours("atr_raw without a table", [] {
    load(0);
    atr_String result = atr_raw("Move to the trash");
    DoNotOptimize(result);
  });
  side("atr_raw without a table", "gettext+copy", 4, [] {
    std::string result = dgettext("none", "Move to the trash");
    DoNotOptimize(result);
  });
}

void growing() {
  growth("message, conversions", 16, [](int n) {
    std::string text;
    for (int i = n; i > 0; --i) text += "%d ";
    return [=] {
      load(0);
      atr_translate message(text.c_str());
      for (int i = 1; i <= n; ++i) atr_SubstituteFormat(message, i, i);
      atr_String result = message.Result();
      DoNotOptimize(result);
    };
  });
  growth("load, entries", 1000, [](int n) {
    makeFiles(n, false);
    return [=] {
      select(n);
      atr_tr_enable(true);
      atr_tr_enable(false);
      loaded = 0;
    };
  });
  growth("template, bytes of text", 1024, [](int n) {
    return [text = repeat(kAscii, static_cast<std::size_t>(n))] {
      load(0);
      atr_translate message(text.c_str());
      DoNotOptimize(message);
    };
  });
}

}  // namespace

int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "en_US.UTF-8");
  setenv("LANGUAGE", "de", 1);
  for (int const entries : {100, 10000, 100000}) makeFiles(entries, true), lookups(entries);
  messages();
  for (int const entries : {100, 10000, 100000}) loading(entries), loadingLimit(entries);
  growing();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
