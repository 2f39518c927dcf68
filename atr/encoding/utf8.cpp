// The first byte of a character settles its length; the others only have to be continuation bytes.
#include "atr/encoding/utf8.h"

#include "atr/encoding/utf8_walk.h"

using namespace atr;

namespace {

constexpr char kPayloadMask[8] = {0, 0, 0x1F, 0x0F, 0x07, 0x03, 0x01, 0};  // by length class
constexpr unsigned int kFirstByte[7] = {0, 0, 0xC0, 0xE0, 0xF0, 0xF8, 0xFC};
constexpr int kPayloadBits = 6;  // of a continuation byte
constexpr int kLongest = 6;      // bytes of a character

int lengthClass(unsigned char first) noexcept {
  if (first < 0x80) return 1;
  if (first < 0xC0) return 0;
  if (first < 0xE0) return 2;
  if (first < 0xF0) return 3;
  if (first < 0xF8) return 4;
  if (first < 0xFC) return 5;
  return first < 0xFE ? 6 : 0;
}

}  // namespace

int atr_utf8_len(unsigned char const* text) { return lengthClass(*text); }

int atr_utf8_len(unsigned int code) {
  if (code < 0x80) return 1;
  if (code < 0x800) return 2;
  if (code < 0x10000) return 3;
  if (code < 0x200000) return 4;
  return code < 0x4000000 ? 5 : 6;
}

unsigned int atr_utf8_to_ucs4(unsigned char const* text, int* length) {
  int const bytes = lengthClass(*text);
  if (length != nullptr) *length = bytes;
  if (bytes == 0) return kNoCode;
  if (bytes == 1) return *text;
  unsigned int code = *text & static_cast<unsigned char>(kPayloadMask[bytes]);
  for (int i = 1; i < bytes; ++i) {
    if (!isContinuation(text[i])) return kNoCode;
    code = code << kPayloadBits | (text[i] & 0x3FU);
  }
  return code;
}

int atr_utf8_from_ucs4(unsigned char* out, unsigned int code) {
  int const bytes = atr_utf8_len(code);
  if (bytes == 1) {
    *out = static_cast<unsigned char>(code);
    return bytes;
  }
  int shift = kPayloadBits * (bytes - 1);
  *out++ = static_cast<unsigned char>(kFirstByte[bytes] | code >> shift);
  while (shift > 0) {
    shift -= kPayloadBits;
    *out++ = static_cast<unsigned char>(0x80U | (code >> shift & 0x3FU));
  }
  return bytes;
}

unsigned char const* atr_utf8_next(unsigned char const* position) noexcept {
  int const bytes = lengthClass(*position);
  return position + (bytes > 0 ? bytes : 1);
}

unsigned char const* atr_utf8_prev(unsigned char const* position) noexcept {
  unsigned char const* first = position - 1;
  while (isContinuation(*first) && position - first < kLongest) --first;
  return first + lengthClass(*first) == position ? first : position - 1;
}
