// Encodings: every code, every pair of bytes in every locale, against the runtime's own
// conversions. The twins hold the rows against the loops.
#include <cwchar>

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
  for (int bit = 7; bit < 32; ++bit) check((1U << bit) - 1), check(1U << bit);
}

TEST(Encoding, Utf8Rows) {
  // clang-format off
  std::tuple<S, unsigned, int, int> const rows[] = {  // ..., its length as told, bytes back from the end
      {"", 0, 1, 1}, {"\xC0\x80", 0, 2, 2}, {"\xC1\xBF", 0x7F, 2, 2}, {"\xED\xA0\x80", 0xD800, 3, 3}, {"\xFE", UINT_MAX, 0, 1},
      {"\xF4\x90\x80\x80", 0x110000, 4, 4}, {"\xFD\xBF\xBF\xBF\xBF\xBF", 0x7FFFFFFF, 6, 6}, {"\xFF", UINT_MAX, 0, 1},
      {"\x80", UINT_MAX, 0, 1}, {"\xE2\x82", UINT_MAX, 3, 1}, {"\xE2\xC2\x82", UINT_MAX, 3, 2}, {"\xE2\x82\xAC", 0x20AC, 3, 3},
      {"\x80\x80\x80\x80\x80\x80\x80", UINT_MAX, 0, 1}, {"\xE2", UINT_MAX, 3, 1}};
  // clang-format on
  for (auto const& [text, code, length, back] : rows) {
    int told = -1;
    S const behind = "x" + text;
    EXPECT_EQ(atr_utf8_to_ucs4(octets(text), &told), code) << text;
    EXPECT_EQ(atr_utf8_to_ucs4(octets(text), nullptr), code) << text;
    EXPECT_EQ(told, length) << text;
    EXPECT_EQ(atr_utf8_prev(octets(behind) + behind.size()), octets(behind) + behind.size() - back)
        << text;
    EXPECT_EQ(atr_encoding_validate(EncodingUtf8, octets(text)), code != UINT_MAX) << text;
  }
}

TEST(Encoding, Rows) {
  constexpr int kNone = EncodingNone, kUtf8 = EncodingUtf8, kByte = EncodingSingleByte;
  // clang-format off
  std::tuple<char const*, int, int, S, char, S> const rows[] = {
      {"an empty text calls no row", kNone, INT_MIN, "", 0, ""}, {"no encoding takes no code", kNone, kUtf8, "abc", 0, "-2"},
      {"but a substitute", 99, kUtf8, "abc", '?', "???"}, {"no encoding has no code", kUtf8, -1, "abc", '?', "-1"},
      {"bytes from the gap", kUtf8, kByte, "\x85", 0, "\xC2\x85"}, {"codes to 255", kByte, kUtf8, "\xC3\xBF\xC2\x80", 0, "\xFF\x80"},
      {"and no more", kByte, kUtf8, "\xC4\x80", 0, "-2"}, {"a NUL comes out", kByte, kUtf8, "a\xC0\x80" "b", 0, "a\0b"s},
      {"one substitute a character", kByte, kUtf8, "\xF0\x9F\x98\x80\xC4\x80", '\xFE', "\xFE\xFE"},
      {"-2 comes first", kByte, kUtf8, "\xC4\x80\xFF", 0, "-2"}, {"-1 comes first", kByte, kUtf8, "\xFF\xC4\x80", 0, "-1"},
      {"-1 behind a substitute", kByte, kUtf8, "\xC4\x80\xFF", '?', "-1?"}};
  // clang-format on
  for (auto const& [what, target, source, text, substitute, result] : rows)
    EXPECT_EQ(transcode(target, source, text, substitute), result) << what;
  for (int const row : {INT_MIN, -1, 0, 1, 2, 3, 4, INT_MAX})
    EXPECT_EQ(atr_encoding_validate(row, octets(""s)), row > 0 && row < 4) << row;
  unsigned char out[8];
  EXPECT_EQ(atr_utf8_to_encoding(kByte, out, octets("a\xC3\xA9"s), 0), 2);
  EXPECT_EQ(atr_utf8_from_encoding(nullptr, kByte, out), 3);
}

static void checkEncoding(unsigned code) {
  char wide[64];
  std::mbstate_t state{};
  auto length = std::wcrtomb(wide, static_cast<wchar_t>(code), &state);
  if (std::mbsinit(&state) == 0) length = std::wcrtomb(wide, L'\0', &state) - 1;  // was held back
  S const result = transcode(EncodingLocale, EncodingUtf8, utf8(code));
  ASSERT_EQ(result, length == SIZE_MAX ? "-2" : S(wide, length));
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
  bool const mayBeDouble = S(std::setlocale(LC_CTYPE, nullptr)).find("BIG5") != S::npos;
  bool const isDouble =
      mayBeDouble && isGood && result.starts_with("-1");  // a character of two codes
  ASSERT_EQ(atr_encoding_validate(EncodingLocale, octets(text)), isGood);
  ASSERT_TRUE(isDouble || result == (isGood ? expected : "-1" + expected)) << result;
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
    for (unsigned code = 1; code < 0x110400 && !HasFailure(); ++code) {
      S const pair{static_cast<char>(code >> 8), static_cast<char>(code)};
      checkEncoding(code);
      if (code > 0x100 && code < 0x10000 && code % 256 != 0)
        checkDecoding(pair), checkCase("a" + pair + S(70, 'b') + "Zz");
      EXPECT_FALSE(HasFailure()) << name << ' ' << code;
    }
  }
}
