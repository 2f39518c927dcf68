// Measuring and writing are one loop. The rows keep no state between calls, and the locale's write
// through a scratch, so that nothing is stored that was not measured.
#include "atr/encoding/transcoding.h"

#include <climits>
#include <cstdlib>
#include <cstring>

#include "atr/encoding/encoding_table.h"
#include "atr/encoding/fast_runs.h"
#include "atr/encoding/utf8.h"
#include "atr/encoding/utf8_walk.h"
#include "atr/frame/platform.h"

using namespace atr;

namespace {

constexpr unsigned int kNoCode = kBadUtf8;

// --- no encoding ------------------------------------------------------------------------------

bool validateNone(unsigned char const* /*text*/) { return false; }
unsigned int decodeNone(unsigned char const* /*text*/, int* /*length*/) { return kNoCode; }
int encodeNone(unsigned char* /*out*/, unsigned int /*code*/) { return -1; }

// --- the process locale -----------------------------------------------------------------------

// Some code pages take a lead byte and the terminator for a character.
bool holdsNul(unsigned char const* text, int bytes) noexcept {
  return bytes > 1 && std::memchr(text, 0, static_cast<std::size_t>(bytes)) != nullptr;
}

bool validateLocale(unsigned char const* text) {
  while (*text != 0) {
    int const bytes = platform::characterBytes(reinterpret_cast<char const*>(text), MB_CUR_MAX);
    if (bytes <= 0 || holdsNul(text, bytes)) return false;
    text += bytes;
  }
  return true;
}

unsigned int decodeLocale(unsigned char const* text, int* length) {
  unsigned int code = 0;
  int const bytes =
      platform::decodeCharacter(code, reinterpret_cast<char const*>(text), MB_CUR_MAX);
  if (bytes <= 0 || holdsNul(text, bytes)) return kNoCode;
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
  while ((text = skipStrictUtf8ByBlocks(text, end)) != end) {
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
int transcodeCharacter(EncodingOps const& to, EncodingOps const& from, TranscodingState& state,
                       char substitute) {
  int length = 0;
  unsigned int const code = from.decode(state.text, &length);
  if (code == kNoCode) return kUndecodable;
  state.text += length;
  int const bytes = to.encode(state.out, code);
  if (bytes >= 0) return bytes;
  if (substitute == 0) return kNoForm;
  if (state.out != nullptr) *state.out = static_cast<unsigned char>(substitute);
  return 1;
}

unsigned char const* endOf(unsigned char const* text, unsigned char const* end) noexcept {
  auto const* const p = reinterpret_cast<char const*>(text);
  if (end == nullptr) return text + std::strlen(p);
  auto const* const nul = std::memchr(p, 0, static_cast<std::size_t>(end - text));
  return nul != nullptr ? static_cast<unsigned char const*>(nul) : end;
}

}  // namespace

// NOLINTNEXTLINE(readability-non-const-parameter): `out` is written through the state
int atr_encoding_transcode(int target, unsigned char* out, int source, unsigned char const* text,
                           unsigned char const* end, char substitute) {
  EncodingOps const& from = atr_encoding_row(source);
  EncodingOps const& to = atr_encoding_row(target);
  unsigned char const* const textEnd = endOf(text, end);
  FastRun const fastRun = fastRunBetween(target, source);
  TranscodingState state = {text, out, 0};
  while (state.text != textEnd) {
    if (fastRun != nullptr) fastRun(state, textEnd);
    if (state.text == textEnd) break;
    int const bytes = transcodeCharacter(to, from, state, substitute);
    if (bytes < 0) return bytes;
    if (state.out != nullptr) state.out += bytes;
    state.total += static_cast<std::size_t>(bytes);
  }
  if (state.total >= INT_MAX) return kUndecodable;
  if (state.out != nullptr) *state.out = 0;
  return static_cast<int>(state.total);
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
