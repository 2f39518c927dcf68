// Measuring and writing are one loop. The rows keep no state between calls, and the locale's write
// through a scratch, so that nothing is stored that was not measured.
#include "atr/encoding/transcoding.h"

#include <climits>
#include <cstdlib>
#include <cstring>

#include "atr/encoding/batch.h"
#include "atr/encoding/encoding_table.h"
#include "atr/encoding/strict_utf8.h"
#include "atr/encoding/utf8.h"
#include "atr/encoding/utf8_walk.h"
#include "atr/frame/character_step.h"
#include "atr/frame/platform.h"

using namespace atr;

namespace {

// --- no encoding ------------------------------------------------------------------------------

bool validateNone(unsigned char const* /*text*/) { return false; }
unsigned int decodeNone(unsigned char const* /*text*/, int* /*length*/) { return kNoCode; }
int encodeNone(unsigned char* /*out*/, unsigned int /*code*/) { return -1; }

// --- the process locale -----------------------------------------------------------------------

bool validateLocale(unsigned char const* text) {
  while (*text != 0) {
    auto const* const p = reinterpret_cast<char const*>(text);
    int const bytes = platform::characterBytes(p, MB_CUR_MAX);
    if (bytes <= 0 || takesNul(p, bytes)) return false;
    text += bytes;
  }
  return true;
}

unsigned int decodeLocale(unsigned char const* text, int* length) {
  auto const* const p = reinterpret_cast<char const*>(text);
  unsigned int code = 0;
  int const bytes = platform::decodeCharacter(code, p, MB_CUR_MAX);
  if (bytes <= 0 || takesNul(p, bytes)) return kNoCode;
  if (length != nullptr) *length = bytes;
  return code;
}

int encodeLocale(unsigned char* out, unsigned int code) {
  char character[platform::kCharacterRoom];
  int const bytes = platform::encodeCharacter(character, code);
  if (out != nullptr) {
    for (int i = 0; i < bytes; ++i) out[i] = static_cast<unsigned char>(character[i]);
  }
  return bytes;
}

// --- UTF-8 ------------------------------------------------------------------------------------

bool validateUtf8(unsigned char const* text) {
  unsigned char const* const end = text + std::strlen(reinterpret_cast<char const*>(text));
  while ((text = skipStrictUtf8ByChunks(text, end)) != end) {
    int length = 0;
    if (atr_utf8_to_ucs4(text, &length) == kNoCode) return false;
    text += length;
  }
  return true;
}

int encodeUtf8(unsigned char* out, unsigned int code) {
  return out != nullptr ? atr_utf8_from_ucs4(out, code) : atr_utf8_len(code);
}

// --- a byte a character -----------------------------------------------------------------------

bool validateSingleByte(unsigned char const* text) {
  while (*text != 0 && (*text < 0x7F || *text > 0x9F)) ++text;
  return *text == 0;
}

unsigned int decodeSingleByte(unsigned char const* text, int* length) {
  *length = 1;
  return *text;
}

int encodeSingleByte(unsigned char* out, unsigned int code) {
  if (code > 0xFF) return -1;
  if (out != nullptr) *out = static_cast<unsigned char>(code);
  return 1;
}

constexpr EncodingOps kRows[] = {
    {validateNone, decodeNone, encodeNone},
    {validateLocale, decodeLocale, encodeLocale},
    {validateUtf8, atr_utf8_to_ucs4, encodeUtf8},
    {validateSingleByte, decodeSingleByte, encodeSingleByte},
};

constexpr unsigned int kRowCount = sizeof kRows / sizeof kRows[0];

}  // namespace

EncodingOps const& atr_encoding_row(int encoding) noexcept {
  auto const row = static_cast<unsigned int>(encoding);
  return row < kRowCount ? kRows[row] : kRows[EncodingNone];
}

namespace {

// One character by its rows. Answers the bytes of its form, or why there is none.
int transcodeCharacter(EncodingOps const& to, EncodingOps const& from, Position& at,
                       char substitute) {
  int length = 0;
  unsigned int const code = from.decode(at.text, &length);
  if (code == kNoCode) return kUndecodable;
  at.text += length;
  int const bytes = to.encode(at.out, code);
  if (bytes >= 0) return bytes;
  if (substitute == 0) return kNoForm;
  if (at.out != nullptr) *at.out = static_cast<unsigned char>(substitute);
  return 1;
}

unsigned char const* endOf(unsigned char const* text, unsigned char const* end) noexcept {
  auto const* const p = reinterpret_cast<char const*>(text);
  if (end == nullptr) return text + std::strlen(p);
  auto const* const nul = std::memchr(p, 0, static_cast<std::size_t>(end - text));
  return nul != nullptr ? static_cast<unsigned char const*>(nul) : end;
}

}  // namespace

// Batches go first, and the rows take the character at which a batch stopped.
// NOLINTNEXTLINE(readability-non-const-parameter): `out` is written through the position
int atr_encoding_transcode(int target, unsigned char* out, int source, unsigned char const* text,
                           unsigned char const* end, char substitute) {
  EncodingOps const& from = atr_encoding_row(source);
  EncodingOps const& to = atr_encoding_row(target);
  unsigned char const* const textEnd = endOf(text, end);
  Batches const batches = batchesBetween(target, source);
  Position at = {text, out, 0};
  for (int pause = 0; at.text != textEnd;) {
    if (pause > 0) {
      --pause;
    } else if (batches.convert != nullptr) {
      at = batches.convert(at, textEnd);
      pause = batches.pause;
      if (at.text == textEnd) break;
    }
    int const bytes = transcodeCharacter(to, from, at, substitute);
    if (bytes < 0) return bytes;
    if (at.out != nullptr) at.out += bytes;
    at.total += static_cast<std::size_t>(bytes);
  }
  if (at.total >= INT_MAX) return kUndecodable;
  if (at.out != nullptr) *at.out = 0;
  return static_cast<int>(at.total);
}

bool atr_encoding_validate(int encoding, unsigned char const* text) {
  return atr_encoding_row(encoding).validate(text);
}

int atr_utf8_to_encoding(int encoding, unsigned char* out, unsigned char const* text,
                         char substitute) {
  return atr_encoding_transcode(encoding, out, EncodingUtf8, text, nullptr, substitute);
}

int atr_utf8_from_encoding(unsigned char* out, int encoding, unsigned char const* text) {
  return atr_encoding_transcode(EncodingUtf8, out, encoding, text, nullptr, 0);
}
