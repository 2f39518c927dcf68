// A key that is in the table is answered by the table alone. The tail is cut off, and the text
// converted, only for a key that stands for itself.
#include "atr/translation/message_lookup.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "atr/encoding/encoding_table.h"
#include "atr/frame/platform.h"
#include "atr/frame/words.h"
#include "atr/strings/body_room.h"
#include "atr/strings/fresh_text.h"
#include "atr/translation/translation.h"
#include "atr/translation/translation_table.h"

using namespace atr;

namespace {

constexpr char kTail[] = "\\@";  // what follows it tells two meanings of the same text apart
constexpr char kSubstitute = '?';

int encode(MessageText const& message, unsigned char* out) noexcept {
  auto const* const text = reinterpret_cast<unsigned char const*>(message.text);
  return atr_encoding_transcode(EncodingLocale, out, EncodingUtf8, text, text + message.bytes,
                                kSubstitute);
}

std::string_view withoutTail(std::string_view key) noexcept {
  bool const hasBackslash = std::memchr(key.data(), kTail[0], key.size()) != nullptr;
  return hasBackslash ? key.substr(0, key.find(kTail)) : key;
}

// A word at a time. The last word overlaps the one before, which saves a loop over the rest.
bool isAscii(std::string_view text) noexcept {
  char const* p = text.data();
  char const* const end = p + text.size();
  std::uint64_t bits = 0;
  if (end - p >= kWord) {
    for (; end - p > kWord; p += kWord) bits |= loadWord(p);
    bits |= loadWord(end - kWord);
  } else {
    for (char const byte : text) bits |= static_cast<unsigned char>(byte);
  }
  return (bits & kHighBits) == 0;
}

// Some codes are written as a NUL in another encoding: 0 in an overlong form, and multiples of
// 0x10000 where the platform keeps 16 bits of a code. The lowest twelve bits of all of these are
// zero, which are two continuation bytes 0x80, or 0xC0 0x80. A quick test, which may be wrong only
// in saying yes.
bool mayEncodeNul(std::string_view text) noexcept {
  return text.find("\x80\x80") != text.npos || text.find("\xC0\x80") != text.npos;
}

// Bytes of valid UTF-8 in front of the first character that is written as a NUL.
std::size_t bytesBeforeNul(std::string_view text) noexcept {
  EncodingOps const& from = atr_encoding_row(EncodingUtf8);
  EncodingOps const& to = atr_encoding_row(EncodingLocale);
  auto const* const begin = reinterpret_cast<unsigned char const*>(text.data());
  auto const* p = begin;
  for (int length = 0; p != begin + text.size(); p += length) {
    unsigned char form[platform::kCharacterRoom];
    int const bytes = to.encode(form, from.decode(p, &length));
    if (bytes > 0 && std::memchr(form, 0, static_cast<std::size_t>(bytes)) != nullptr) break;
  }
  return static_cast<std::size_t>(p - begin);
}

// What a key without a translation shows. Its encoded form ends at a NUL of its own, if it has one.
MessageText ownText(std::string_view key) noexcept {
  std::string_view const text = withoutTail(key);
  MessageText message = {text.data(), text.size(), 0};
  if (isAscii(text)) return message;
  message.encodedBytes = std::max(encode(message, nullptr), 0);
  if (message.encodedBytes == 0 || !mayEncodeNul(text)) return message;
  message.bytes = bytesBeforeNul(text);
  message.encodedBytes = encode(message, nullptr);
  return message;
}

}  // namespace

void MessageText::write(char* out) const noexcept {
  encode(*this, reinterpret_cast<unsigned char*>(out));
}

MessageText atr_LookupMessage(char const* text) noexcept {
  std::string_view const key(text);
  std::string_view const translation = atr_trTable.find(key);
  if (translation.data() != nullptr) return {translation.data(), translation.size(), 0};
  return ownText(key);
}

atr_String atr_raw(char const* key) {
  if (key == nullptr) return atr_String();
  MessageText const message = atr_LookupMessage(key);
  if (message.encodedBytes == 0) {
    if (message.bytes == 0) return atr_String();
    return atr_String(message.text, checkedLength(message.bytes));
  }
  FreshText result(message.encodedBytes);
  message.write(result.begin());
  return result.finish(result.begin() + message.encodedBytes);
}
