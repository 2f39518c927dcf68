// Encodings: every code, every pair of bytes in every locale, against the runtime's own
// conversions. The twins hold the rows against the loops.
#include "atr/encoding/utf8_walk.h"
#include "support/support.h"

using namespace test;

static S utf8(unsigned code) {
  unsigned char out[7] = {};
  return S(reinterpret_cast<char*>(out), z(atr_utf8_from_ucs4(out, code)));
}

TEST(Encoding, Utf8CodesRoundTrip) {
  auto const check = [](unsigned code) {
    S const text = utf8(code);
    int told = -1;
    bool const isGood = code < 0x80000000;
    auto const *start = octets(text), *end = start + text.size();
    ASSERT_EQ(z(atr_utf8_len(code)), text.size()) << code;
    ASSERT_EQ(atr_utf8_to_ucs4(start, &told), isGood ? code : UINT_MAX) << code;
    ASSERT_EQ(told, isGood ? end - start : 0) << code;
    ASSERT_TRUE(code == 0 || !isGood || atr_utf8_next(atr_utf8_prev(end)) == end);
  };
  for (unsigned code = 0; code < 0xFFF00000; code += code < 0x220000 ? 1 : 9973) check(code);
  for (int bit = 7; bit < 32; ++bit) {
    check((1U << bit) - 1);
    check(1U << bit);
  }
}

struct Utf8Row {
  char const* what;
  S text;
  unsigned code;
  int length;  // bytes, as the decoder tells
  int back;    // bytes from the end of the text to the character that stands last
};

TEST(Encoding, Utf8Rows) {
  constexpr unsigned kNone = UINT_MAX;
  Utf8Row const rows[] = {
      {"an empty text is a NUL", "", 0, 1, 1},
      {"an overlong NUL", "\xC0\x80", 0, 2, 2},
      {"an overlong form of two bytes", "\xC1\xBF", 0x7F, 2, 2},
      {"a surrogate", "\xED\xA0\x80", 0xD800, 3, 3},
      {"a code beyond Unicode", "\xF4\x90\x80\x80", 0x110000, 4, 4},
      {"the highest code", "\xFD\xBF\xBF\xBF\xBF\xBF", 0x7FFFFFFF, 6, 6},
      {"FE is no lead byte", "\xFE", kNone, 0, 1},
      {"FF is no lead byte", "\xFF", kNone, 0, 1},
      {"a continuation byte alone", "\x80", kNone, 0, 1},
      {"more of them than any character has", S(7, '\x80'), kNone, 0, 1},
      {"a lead byte alone", "\xE2", kNone, 3, 1},
      {"a character cut at its end", "\xE2\x82", kNone, 3, 1},
      {"a lead byte in a character", "\xE2\xC2\x82", kNone, 3, 2},
  };
  for (auto const& [what, text, code, length, back] : rows) {
    SCOPED_TRACE(what);
    int told = -1;
    S const behind = "x" + text;
    auto const* const end = octets(behind) + behind.size();
    EXPECT_EQ(atr_utf8_to_ucs4(octets(text), &told), code);
    EXPECT_EQ(atr_utf8_to_ucs4(octets(text), nullptr), code);
    EXPECT_EQ(told, length);
    EXPECT_EQ(end - atr_utf8_prev(end), back);
    EXPECT_EQ(atr_encoding_validate(EncodingUtf8, octets(text)), code != kNone);
  }
}

struct TranscodingRow {
  char const* what;
  int target, source;
  S text;
  char substitute;  // 0 for none
  S result;
};

TEST(Encoding, Rows) {
  constexpr int kNone = EncodingNone, kUtf8 = EncodingUtf8, kByte = EncodingSingleByte;
  TranscodingRow const rows[] = {
      {"an empty text asks no encoding", kNone, INT_MIN, "", 0, ""},
      {"no encoding takes no code", kNone, kUtf8, "abc", 0, "-2"},
      {"no encoding takes a substitute", 99, kUtf8, "abc", '?', "???"},
      {"no encoding has no code", kUtf8, -1, "abc", '?', "-1"},
      {"single bytes have codes from 80 to 9F", kUtf8, kByte, "\x85", 0, "\xC2\x85"},
      {"single bytes take codes up to FF", kByte, kUtf8, "\xC3\xBF\xC2\x80", 0, "\xFF\x80"},
      {"single bytes take no code above FF", kByte, kUtf8, "\xC4\x80", 0, "-2"},
      {"an overlong NUL comes out as a byte", kByte, kUtf8, "a\xC0\x80z", 0, "a\0z"s},
      {"a substitute for each character", kByte, kUtf8, "\xF0\x9F\x98\x80\xC4\x80", '\xFE',
       "\xFE\xFE"},
      {"no form, before a bad byte", kByte, kUtf8, "\xC4\x80\xFF", 0, "-2"},
      {"a bad byte, before one without form", kByte, kUtf8, "\xFF\xC4\x80", 0, "-1"},
      {"a bad byte behind a substitute", kByte, kUtf8, "\xC4\x80\xFF", '?', "-1?"},
  };
  for (auto const& [what, target, source, text, substitute, result] : rows)
    EXPECT_EQ(transcode(target, source, text, substitute), result) << what;
  for (int const encoding : {INT_MIN, -1, 0, 1, 2, 3, 4, INT_MAX})
    EXPECT_EQ(atr_encoding_validate(encoding, octets(""s)), encoding > 0 && encoding < 4)
        << "encoding " << encoding;
  unsigned char out[8];
  EXPECT_EQ(atr_utf8_to_encoding(kByte, out, octets("a\xC3\xA9"s), 0), 2);
  EXPECT_EQ(atr_utf8_from_encoding(nullptr, kByte, out), 3);
}

static void checkEncoding(unsigned code) {
  ASSERT_EQ(transcode(EncodingLocale, EncodingUtf8, utf8(code)), localeBytes(code).value_or("-2"));
}

// The four characters of BIG5-HKSCS that are a letter and a combining mark. A step of the library
// takes one code, so they are refused.
static bool hasTwoCodes(S const& pair) {
  S const all[] = {"\x88\x62", "\x88\x64", "\x88\xA3", "\x88\xA5"};
  bool const isBig5 = S(std::setlocale(LC_CTYPE, nullptr)).find("BIG5") != S::npos;
  return isBig5 && std::ranges::find(all, pair) != std::end(all);
}

static void checkDecoding(S const& text) {
  S expected;
  bool isGood = true;
  for (std::size_t i = 0, n = 0; i < 2 && isGood; i += n) {
    wchar_t wide = 0;
    std::mbtowc(nullptr, nullptr, 0);
    n = z(std::mbtowc(&wide, text.c_str() + i, MB_CUR_MAX));
    isGood = n - 1 < 2 - i;
    if (isGood) expected += utf8(static_cast<unsigned>(wide));
  }
  std::mbtowc(nullptr, text.c_str(), 1);  // a client may leave the runtime's own state anywhere
  S const result = transcode(EncodingUtf8, EncodingLocale, text);
  ASSERT_EQ(atr_encoding_validate(EncodingLocale, octets(text)), isGood);
  ASSERT_EQ(result, hasTwoCodes(text) ? "-1" : isGood ? expected : "-1" + expected);
}

// Against a walk with the runtime's own mblen.
static void checkCase(S const& text) {
  S upper = text, lower = text;
  for (std::size_t i = 0, n = 1; i < text.size(); i += n) {
    n = characterBytes(text, i);
    if (n == 1 && std::islower(octets(text)[i])) upper[i] = static_cast<char>(text[i] - 32);
    if (n == 1 && std::isupper(octets(text)[i])) lower[i] = static_cast<char>(text[i] + 32);
  }
  int const bytes = static_cast<int>(text.size());
  ASSERT_EQ(textOf(Text(text.c_str(), bytes).ToUpper()), upper);
  ASSERT_EQ(textOf(Text(text.c_str(), bytes).ToLower()), lower);
}

TEST(Locales, EveryCodeAndEveryPairOfBytes) {
  for (char const* const name : kLocales) {
    Locale const locale(name);
    for (unsigned code = 1; code < 0x110400; ++code) {
      S const pair{static_cast<char>(code >> 8), static_cast<char>(code)};
      checkEncoding(code);
      if (code > 0x100 && code < 0x10000 && code % 256 != 0) {
        checkDecoding(pair);
        checkCase("a" + pair + S(70, 'b') + "Zz");
      }
      if (HasFailure()) FAIL() << "in the locale " << name << ", code or pair " << std::hex << code;
    }
  }
}
