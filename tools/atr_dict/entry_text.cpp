// Whatever is written here is read back as the same bytes.
#include "entry_text.h"

#include <cstdio>

#include "atr/encoding/utf8.h"
#include "atr/translation/entry_line.h"

namespace dict {

namespace {

constexpr std::size_t kLongestLine = 8191;  // bytes that the reader takes at once

std::string octal(std::string_view bytes) {
  std::string result;
  for (char const c : bytes) {
    char code[8];
    std::snprintf(code, sizeof code, "\\%03o", static_cast<unsigned char>(c));
    result += code;
  }
  return result;
}

// Blanks other than the plain one, marks of direction, and joiners.
bool isInvisible(unsigned int code) {
  return code == 0xA0 || code == 0xAD || (code >= 0x2000 && code <= 0x200F) ||
         (code >= 0x2028 && code <= 0x202F) || code == 0x205F || code == 0x2060 || code == 0xFEFF ||
         (code >= 0x7F && code < 0xA0);
}

// The bytes of an invisible character at the start of `text`, which a NUL ends; 0 for any other.
std::size_t invisibleBytes(char const* text) {
  int bytes = 0;
  unsigned int const code = atr_utf8_to_ucs4(reinterpret_cast<unsigned char const*>(text), &bytes);
  return isInvisible(code) ? static_cast<std::size_t>(bytes) : 0;
}

std::string escapedByte(char c, bool isTail) {
  constexpr std::string_view kBytes = "\a\b\f\n\r\t\v";
  constexpr std::string_view kNames = "abfnrtv";
  std::size_t const name = kBytes.find(c);
  if (name != kBytes.npos) return {'\\', kNames[name]};
  if (c == '\\') return isTail ? "\\" : "\\\\";
  if (static_cast<unsigned char>(c) < 0x20) return octal({&c, 1});
  return {c};
}

std::string withoutQuotes(std::string key) {
  for (std::size_t at = 0; (at = key.find('\'', at)) != key.npos;) key.replace(at, 1, "\\047");
  return key;
}

}  // namespace

std::string escaped(std::string_view text) {
  std::string const whole(text);
  std::string result;
  for (std::size_t at = 0; at < whole.size();) {
    std::size_t const invisible = invisibleBytes(whole.c_str() + at);
    if (invisible > 0) {
      result += octal(text.substr(at, invisible));
      at += invisible;
    } else {
      result += escapedByte(whole[at], whole[at + 1] == '@');
      ++at;
    }
  }
  return result;
}

std::optional<std::string> entryLine(std::string_view key, std::string_view text) {
  std::string rawKey = escaped(key);
  if ((rawKey + atr::kMarker).find(atr::kMarker) != rawKey.size()) rawKey = withoutQuotes(rawKey);
  std::string line = "msg['" + rawKey + atr::kMarker + escaped(text) + "'\n";
  if (line.size() > kLongestLine) return std::nullopt;
  return line;
}

}  // namespace dict
