// Encodings, layout and natural order beside iconv, the C library and ICU.
#include <atr/atr.h>
#include <iconv.h>
#include <linebreak.h>
#include <unicode/brkiter.h>
#include <unicode/coll.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <clocale>

#include "bench.h"

using namespace bench;

namespace {

unsigned char const* bytes(std::string const& s) {
  return reinterpret_cast<unsigned char const*>(s.c_str());
}

std::size_t convert(iconv_t cd, std::string const& in, char* out, std::size_t room) {
  char* from = const_cast<char*>(in.data());
  std::size_t left = in.size(), before = room;
  iconv(cd, &from, &left, &out, &room);
  return before - room;
}

char room[65536];

void validating() {
  for (auto const& [what, source, goal] :
       {std::tuple("ASCII", kAscii, 10.0), {"Latin", kLatin, 7.0}, {"CJK", kCjk, 7.0}}) {
    std::string const text = repeat(source, 4096),
                      name = std::string("validate UTF-8 4 kB ") + what;
    ours(name, [text] { DoNotOptimize(atr_encoding_validate(EncodingUtf8, bytes(text))); });
    side(name, "iconv", goal, [text, cd = iconv_open("UTF-32LE", "UTF-8")] {
      DoNotOptimize(convert(cd, text, room, sizeof room));
    });
    limit(name, [text] { DoNotOptimize(std::strlen(text.c_str())); });
  }
}

void transcode(std::string const& name, char const* locale, int encoding, char const* codeset,
               std::string const& source, double goal, double goalWide) {
  std::string const text = repeat(source, 4096);
  ours(name, [=] {
    useLocale(locale);
    int const measured = atr_utf8_to_encoding(encoding, nullptr, bytes(text), '?');
    DoNotOptimize(measured);
    DoNotOptimize(
        atr_utf8_to_encoding(encoding, reinterpret_cast<unsigned char*>(room), bytes(text), '?'));
  });
  side(name, "iconv twice", goal, [text, cd = iconv_open(codeset, "UTF-8")] {
    DoNotOptimize(convert(cd, text, room, sizeof room));
    DoNotOptimize(convert(cd, text, room, sizeof room));
  });
  if (goalWide > 0) {
    side(name, "mbstowcs+wcstombs", goalWide, [=] {
      static wchar_t wide[65536];
      useLocale(locale);
      std::mbstowcs(wide, text.c_str(), 65536);
      DoNotOptimize(std::wcstombs(room, wide, sizeof room));
    });
  }
  copyLimit(name, text.size());
}

void transcoding() {
  transcode("UTF-8 to a UTF-8 locale 4 kB ASCII", "C.UTF-8", EncodingLocale, "UTF-8", kAscii, 8, 8);
  transcode("UTF-8 to a UTF-8 locale 4 kB CJK", "C.UTF-8", EncodingLocale, "UTF-8", kCjk, 8, 8);
  transcode("UTF-8 to Latin-1 row 4 kB", "C", EncodingSingleByte, "ISO-8859-1", kLatin, 8, 0);
  transcode("UTF-8 to Latin-1 locale 4 kB", "de_DE.ISO-8859-1", EncodingLocale, "ISO-8859-1",
            kLatin, 8, 0);
  transcode("UTF-8 to EUC-JP locale 4 kB", "ja_JP.EUC-JP", EncodingLocale, "EUC-JP", kCjk, 0.7, 0);
}

void reading() {
  std::string const name = "EUC-JP locale to UTF-8 4 kB", utf8 = repeat(kCjk, 4096);
  std::string const text(room, convert(iconv_open("EUC-JP", "UTF-8"), utf8, room, sizeof room));
  ours(name, [=] {
    useLocale("ja_JP.EUC-JP");
    DoNotOptimize(atr_utf8_from_encoding(nullptr, EncodingLocale, bytes(text)));
    DoNotOptimize(atr_utf8_from_encoding(reinterpret_cast<unsigned char*>(room), EncodingLocale,
                                         bytes(text)));
  });
  side(name, "iconv twice", 0, [text, cd = iconv_open("UTF-8", "EUC-JP")] {
    DoNotOptimize(convert(cd, text, room, sizeof room));
    DoNotOptimize(convert(cd, text, room, sizeof room));
  });
  copyLimit(name, text.size());
}

std::string foldByLoop(std::string const& text, std::size_t limit) {
  std::string out;
  std::size_t lineStart = 0, at = 0;
  while (at < text.size()) {
    std::size_t end = text.find(' ', at);
    if (end == text.npos) end = text.size();
    if (end - lineStart >= limit) {
      out.append(text, lineStart, end - lineStart);
      out += '\n';
      lineStart = end + 1;
    }
    at = end + 1;
  }
  return lineStart < text.size() ? out.append(text, lineStart, text.npos) : out;
}

void layout() {
  for (auto const& [what, source] : {std::pair("ASCII", kAscii), {"CJK", kCjk}}) {
    std::string const text = repeat(source, 10000), name = std::string("fold 10 kB at 72 ") + what;
    ours(name, [s = atr_String(text.c_str())] {
      useLocale("C.UTF-8");
      atr_String folded = atr_String::BreakLineString(s, 72);
      DoNotOptimize(folded);
    });
    side(name, "loop over blanks", 2, [text] { DoNotOptimize(foldByLoop(text, 72)); });
    side(name, "ICU", 15, [text] {
      static UErrorCode status = U_ZERO_ERROR;
      static auto const breaker =
          icu::BreakIterator::createLineInstance(icu::Locale::getUS(), status);
      icu::UnicodeString const u = icu::UnicodeString::fromUTF8(text);
      icu::UnicodeString folded;
      breaker->setText(u);
      int lineStart = 0;
      for (int at = breaker->first(); at != icu::BreakIterator::DONE; at = breaker->next()) {
        if (at - lineStart < 72) continue;
        folded.append(u, lineStart, at - lineStart).append(u'\n');
        lineStart = at;
      }
      std::string out;
      DoNotOptimize(folded.append(u, lineStart, u.length() - lineStart).toUTF8String(out));
    });
    side(name, "libunibreak", 0, [text] {
      static std::vector<char> breaks(16384);
      set_linebreaks_utf8(reinterpret_cast<utf8_t const*>(text.data()), text.size(), "en",
                          breaks.data());
      std::string out;
      std::size_t lineStart = 0;
      for (std::size_t at = 0; at < text.size(); ++at) {
        if (breaks[at] != LINEBREAK_ALLOWBREAK || at + 1 - lineStart < 72) continue;
        out.append(text, lineStart, at + 1 - lineStart) += '\n';
        lineStart = at + 1;
      }
      DoNotOptimize(out.append(text, lineStart, text.npos));
    });
    copyLimit(name, text.size());
  }
}

void order() {
  static std::vector<std::string> names;
  std::mt19937 random(1);
  for (int i = 0; i < 10000; ++i)
    names.push_back("photo_" + std::to_string(random() % 20) + "_" +
                    std::to_string(random() % 100000) + ".jpg");
  auto const sortBy = [](auto less) {
    std::vector<char const*> list;
    for (auto const& name : names) list.push_back(name.c_str());
    std::sort(list.begin(), list.end(), less);
    DoNotOptimize(list.data());
  };
  ours("sort 10 000 names",
       [=] { sortBy([](char const* a, char const* b) { return strnatcmp(a, b) < 0; }); });
  side("sort 10 000 names", "strverscmp", 1.3,
       [=] { sortBy([](char const* a, char const* b) { return strverscmp(a, b) < 0; }); });
  side("sort 10 000 names", "ICU collator", 6, [=] {
    static UErrorCode status = U_ZERO_ERROR;
    static auto* const collator = [] {
      auto* c = icu::Collator::createInstance(icu::Locale::getUS(), status);
      c->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
      return c;
    }();
    sortBy([](char const* a, char const* b) { return collator->compareUTF8(a, b, status) < 0; });
  });
  limit("sort 10 000 names",
        [=] { sortBy([](char const* a, char const* b) { return std::strcmp(a, b) < 0; }); });
}

void growing() {
  auto const textOf = [](int bytes) { return repeat(kCjk, static_cast<std::size_t>(bytes)); };
  growth("validate UTF-8, bytes", 1024, [=](int n) {
    return [text = textOf(n)] { DoNotOptimize(atr_encoding_validate(EncodingUtf8, bytes(text))); };
  });
  growth("UTF-8 to a locale by its characters, bytes", 1024, [=](int n) {
    return [text = textOf(n)] {
      useLocale("ja_JP.EUC-JP");
      DoNotOptimize(atr_utf8_to_encoding(EncodingLocale, nullptr, bytes(text), '?'));
    };
  });
  for (char const* const locale : {"C.UTF-8", "ja_JP.EUC-JP"}) {
    growth(std::string("fold in ") + locale + ", bytes", 1024, [=](int n) {
      return [=, s = atr_String(repeat(kAscii, static_cast<std::size_t>(n)).c_str())] {
        useLocale(locale);
        atr_String folded = atr_String::BreakLineString(s, 72);
        DoNotOptimize(folded);
      };
    });
  }
  growth("AddLineBreaks, lines", 16, [](int n) {
    std::string const line = repeat(kAscii, 118) + "\n";
    return [s = atr_String(repeat(line, line.size() * static_cast<std::size_t>(n)).c_str())] {
      useLocale("C.UTF-8");
      atr_String folded = atr_String::AddLineBreaks(s, 72, false);
      DoNotOptimize(folded);
    };
  });
  growth("strnatcmp, digits", 1024, [](int n) {
    std::string const digits(static_cast<std::size_t>(n), '7');
    return [a = digits + "a", b = digits + "b"] { DoNotOptimize(strnatcmp(a.c_str(), b.c_str())); };
  });
}

}  // namespace

int main(int argc, char** argv) {
  validating();
  transcoding();
  reading();
  layout();
  order();
  growing();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
