// Escapes in the keys and values of a dictionary. A backslash that begins no escape stays, and so
// does the byte behind it.
#include "atr/translation/escapes.h"

#include <cstring>

using atr::Escape;

namespace {

constexpr int kMaxOctalDigits = 3;

int octalDigit(char c) noexcept { return c >= '0' && c <= '7' ? c - '0' : -1; }

int hexDigit(char c) noexcept {
  if (c >= '0' && c <= '9') return c - '0';
  char const lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// octal = "\" digit [ digit [ digit ] ]
Escape octalEscape(char const* p) noexcept {
  unsigned int value = 0;
  for (int i = 0; i < kMaxOctalDigits && octalDigit(*p) >= 0; ++i, ++p) {
    value = value << 3 | static_cast<unsigned int>(octalDigit(*p));
  }
  return {p, static_cast<char>(value & 0xFF)};
}

// hex = "\x" digit { digit }
Escape hexEscape(char const* p) noexcept {
  if (hexDigit(*p) < 0) return {nullptr, 0};
  unsigned int value = 0;
  for (; hexDigit(*p) >= 0; ++p) value = value << 4 | static_cast<unsigned int>(hexDigit(*p));
  return {p, static_cast<char>(value & 0xFF)};
}

}  // namespace

Escape atr::decodeEscape(char const* p) noexcept {
  constexpr char kNames[] = "\"'\\abfnrtv";
  constexpr char kBytes[] = "\"'\\\a\b\f\n\r\t\v";
  if (octalDigit(*p) >= 0) return octalEscape(p);
  if (*p == 'x') return hexEscape(p + 1);
  char const* const name = *p != '\0' ? std::strchr(kNames, *p) : nullptr;
  if (name == nullptr) return {nullptr, 0};
  return {p + 1, kBytes[name - kNames]};
}

// Decoding happens in one pass, so a decoded backslash begins no second escape. A backslash that
// begins no escape is copied together with its next byte, which so begins none either.
void atr_trDecodeEscapes(char* text) noexcept {
  char* out = std::strchr(text, '\\');
  if (out == nullptr) return;
  char const* in = out;
  while (*in != '\0') {
    if (*in != '\\') {
      *out++ = *in++;
      continue;
    }
    Escape const escape = atr::decodeEscape(in + 1);
    if (escape.end != nullptr) {
      *out++ = escape.byte;
      in = escape.end;
    } else {
      *out++ = *in++;
      if (*in != '\0') *out++ = *in++;
    }
  }
  *out = '\0';
}
