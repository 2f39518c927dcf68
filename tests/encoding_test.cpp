// Encodings: every code, every pair of bytes in every locale, against the runtime's own
// conversions.
#include <climits>
#include <cstring>
#include <cwchar>

#include "atr/atr.h"
#include "atr/encoding/encoding_table.h"
#include "atr/encoding/utf8_walk.h"
#include "support/support.h"

using namespace test;
using namespace std::string_literals;

namespace {

unsigned char const* bytes(std::string const& s) {
  return reinterpret_cast<unsigned char const*>(s.c_str());
}

// Measures, then writes between canaries, and expects both to agree. Answers "-1" for a failure.
std::string transcode(int target, int source, std::string const& text, char substitute) {
  int const measured =
      atr_encoding_transcode(target, nullptr, source, bytes(text), nullptr, substitute);
  std::string out(64 + static_cast<std::size_t>(std::max(measured, 0)), '\x5A');
  auto* const start = reinterpret_cast<unsigned char*>(out.data()) + 16;
  if (measured < 0) return std::to_string(measured);
  EXPECT_EQ(atr_encoding_transcode(target, start, source, bytes(text), nullptr, substitute),
            measured);
  auto const end = 16 + static_cast<std::size_t>(measured);
  EXPECT_EQ(out.substr(0, 16) + out.substr(end + 1), std::string(out.size() - 1 - end + 16, '\x5A'))
      << text;
  EXPECT_EQ(out[end], '\0');
  return out.substr(16, end - 16);
}

}  // namespace

TEST(Encoding, Utf8CodesRoundTrip) {
  auto const check = [](unsigned code) {
    unsigned char out[7] = {};
    int told = -1, length = atr_utf8_from_ucs4(out, code);
    bool const isGood = code < 0x80000000;
    ASSERT_EQ(atr_utf8_len(code), length) << code;
    ASSERT_EQ(atr_utf8_to_ucs4(out, &told), isGood ? code : 0xFFFFFFFF) << code;
    ASSERT_EQ(told, isGood ? length : 0) << code;
    auto const* const end =
        code > 0 && isGood ? atr_utf8_next(atr_utf8_prev(out + length)) : out + length;
    ASSERT_EQ(end, out + length);
  };
  for (unsigned code = 0; code < 0x220000; ++code) check(code);
  for (unsigned code = 0x220000; code < 0xFFF00000; code += 9973) check(code);
  for (int bit = 7; bit < 32; ++bit) check((1U << bit) - 1), check(1U << bit);
}

TEST(Encoding, Utf8Rows) {
  constexpr unsigned kBad = 0xFFFFFFFF;
  std::tuple<std::string, unsigned, int> const rows[] = {
      {"", 0, 1},
      {"\xC0\x80", 0, 2},
      {"\xC1\xBF", 0x7F, 2},
      {"\xED\xA0\x80", 0xD800, 3},
      {"\xFE", kBad, 0},
      {"\xF4\x90\x80\x80", 0x110000, 4},
      {"\xFD\xBF\xBF\xBF\xBF\xBF", 0x7FFFFFFF, 6},
      {"\xFF", kBad, 0},
      {"\x80", kBad, 0},
      {"\xE2\x82", kBad, 3},
      {"\xE2\xC2\x82", kBad, 3}};
  for (auto const& [text, code, length] : rows) {
    int told = -1;
    EXPECT_EQ(atr_utf8_to_ucs4(bytes(text), &told), code) << text;
    EXPECT_EQ(atr_utf8_to_ucs4(bytes(text), nullptr), code) << text;
    EXPECT_EQ(told, length) << text;
    EXPECT_EQ(atr_encoding_validate(EncodingUtf8, bytes(text)), code != kBad) << text;
  }
  for (auto const& [text, back] : {std::pair("x\xE2\x82\xAC"s, 3),
                                   {"x\xC3\xA9\xA9", 1},
                                   {"xa", 1},
                                   {"x\x80\x80\x80\x80\x80\x80\x80", 1},
                                   {"x\xE2", 1}}) {
    EXPECT_EQ(atr_utf8_prev(bytes(text) + text.size()), bytes(text) + text.size() - back) << text;
  }
}

TEST(Encoding, Rows) {
  constexpr int kNone = EncodingNone, kUtf8 = EncodingUtf8, kByte = EncodingSingleByte;
  std::tuple<char const*, int, int, std::string, char, std::string> const rows[] = {
      {"an empty text calls no row", kNone, INT_MIN, "", 0, ""},
      {"no encoding takes no code", kNone, kUtf8, "abc", 0, "-2"},
      {"but a substitute", 99, kUtf8, "abc", '?', "???"},
      {"no encoding has no code", kUtf8, -1, "abc", '?', "-1"},
      {"bytes from the gap", kUtf8, kByte, "\x85", 0, "\xC2\x85"},
      {"codes up to 255", kByte, kUtf8, "\xC3\xBF\xC2\x80", 0, "\xFF\x80"},
      {"and no more", kByte, kUtf8, "\xC4\x80", 0, "-2"},
      {"one substitute a character", kByte, kUtf8, "\xF0\x9F\x98\x80\xC4\x80", '\xFE', "\xFE\xFE"},
      {"a NUL comes out", kByte, kUtf8,
       "a\xC0\x80"
       "b",
       0, "a\0b"s},
      {"-2 comes first", kByte, kUtf8, "\xC4\x80\xFF", 0, "-2"},
      {"-1 comes first", kByte, kUtf8, "\xFF\xC4\x80", 0, "-1"},
      {"-1 behind a substitute", kByte, kUtf8, "\xC4\x80\xFF", '?', "-1"}};
  for (auto const& [what, target, source, text, substitute, result] : rows) {
    EXPECT_EQ(transcode(target, source, text, substitute), result) << what;
  }
  for (int const row : {INT_MIN, -1, 0, 4, INT_MAX})
    EXPECT_FALSE(atr_encoding_validate(row, bytes("")));
  for (int const row : {1, 2, 3}) EXPECT_TRUE(atr_encoding_validate(row, bytes("")));
  for (int byte = 1; byte < 256; ++byte) {
    std::string const text(1, static_cast<char>(byte));
    EXPECT_EQ(atr_encoding_validate(EncodingSingleByte, bytes(text)), byte < 127 || byte > 159)
        << byte;
  }
  unsigned char out[8];
  EXPECT_EQ(atr_utf8_to_encoding(EncodingSingleByte, out, bytes("a\xC3\xA9"), 0), 2);
  EXPECT_EQ(atr_utf8_from_encoding(nullptr, EncodingSingleByte, out), 3);
}

TEST(Encoding, EveryCodeInEveryLocale) {
  for (char const* const name : allLocales()) {
    Locale const locale(name);
    for (unsigned code = 1; code < 0x110400; ++code) {
      unsigned char utf8[7] = {};
      atr_utf8_from_ucs4(utf8, code);
      char wide[64] = {};
      std::mbstate_t state{};
      auto const length = static_cast<int>(std::wcrtomb(wide, static_cast<wchar_t>(code), &state));
      std::string const expected =
          length < 0 ? "-2" : std::string(wide, static_cast<std::size_t>(length));
      std::string const result =
          transcode(EncodingLocale, EncodingUtf8, reinterpret_cast<char*>(utf8), 0);
      bool const isStateless = std::mbsinit(&state) != 0;
      ASSERT_EQ(result, isStateless ? expected : result) << name << ' ' << code;
    }
  }
}

TEST(Encoding, EveryPairOfBytesInEveryLocale) {
  for (char const* const name : allLocales()) {
    Locale const locale(name);
    for (int pair = 0x0101; pair <= 0xFFFF; ++pair) {
      if (pair % 256 == 0) continue;
      std::string const text = {static_cast<char>(pair >> 8), static_cast<char>(pair)};
      std::string expected;
      bool isGood = true;
      for (std::size_t i = 0; i < 2 && isGood;) {
        wchar_t wide = 0;
        std::mbtowc(nullptr, nullptr, 0);
        int const n = std::mbtowc(&wide, text.c_str() + i, MB_CUR_MAX);
        isGood = n > 0 && text.find('\0', i) > i + static_cast<std::size_t>(n) - 1;
        unsigned char utf8[7] = {};
        atr_utf8_from_ucs4(utf8, static_cast<unsigned>(wide));
        expected += reinterpret_cast<char*>(utf8);
        i += isGood ? static_cast<std::size_t>(n) : 0;
      }
      std::string const result = transcode(EncodingUtf8, EncodingLocale, text, 0);
      bool const isDouble = result == "-1" && isGood;  // one character for two codes
      ASSERT_EQ(atr_encoding_validate(EncodingLocale, bytes(text)), isGood) << name << ' ' << pair;
      ASSERT_EQ(result, isGood && !isDouble ? expected : "-1") << name << ' ' << pair;
    }
  }
}

// A client that left the runtime's own state in the middle of a character disturbs nothing.
TEST(Encoding, KeepsNoShiftState) {
  Locale const locale(ATR_TEST_SJIS);
  wchar_t wide = 0;
  std::mbtowc(&wide, "\x83", 1);
  EXPECT_EQ(transcode(EncodingUtf8, EncodingLocale, "A\x83\x5C", 0), "A\xE3\x82\xBD");
  EXPECT_EQ(transcode(EncodingUtf8, EncodingLocale, "\x83", 0), "-1");
}
