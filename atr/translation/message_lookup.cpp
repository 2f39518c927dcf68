// A key that is found is answered by the table alone: the tail rule and the encoding are for keys
// that stand for themselves.
#include "atr/translation/message_lookup.h"

#include <algorithm>
#include <cstring>

#include "atr/encoding/encoding_table.h"
#include "atr/strings/body_room.h"
#include "atr/translation/translation.h"
#include "atr/translation/translation_table.h"

using namespace atr;

namespace {

constexpr char kTail[] = "\\@";  // what follows tells two meanings of one text apart
constexpr char kSubstitute = '?';

int encode(MessageText const& message, unsigned char* out) noexcept {
  auto const* const text = reinterpret_cast<unsigned char const*>(message.text);
  return atr_encoding_transcode(EncodingLocale, out, EncodingUtf8, text, text + message.bytes,
                                kSubstitute);
}

// The key without its tail, as it stands.
MessageText ownText(char const* key, bool& hasHighByte) noexcept {
  char const* end = key;
  unsigned char bytes = 0;
  for (; *end != '\0' && !(end[0] == kTail[0] && end[1] == kTail[1]); ++end) {
    bytes = static_cast<unsigned char>(bytes | static_cast<unsigned char>(*end));
  }
  hasHighByte = bytes >= 0x80;
  return {key, static_cast<std::size_t>(end - key), 0};
}

}  // namespace

void MessageText::write(char* out) const noexcept {
  encode(*this, reinterpret_cast<unsigned char*>(out));
}

MessageText atr_LookupMessage(char const* key) noexcept {
  char const* const translation = atr_trFind(key);
  if (translation != nullptr) return {translation, std::strlen(translation), 0};
  bool hasHighByte = false;
  MessageText message = ownText(key, hasHighByte);
  if (hasHighByte) message.encodedBytes = std::max(encode(message, nullptr), 0);
  return message;
}

atr_String atr_raw(char const* key) {
  if (key == nullptr) return atr_String();
  MessageText const message = atr_LookupMessage(key);
  if (message.encodedBytes == 0) {
    if (message.bytes == 0) return atr_String();
    return atr_String(message.text, checkedLength(message.bytes));
  }
  atr_String result(message.encodedBytes, atr_String::PreSize);
  char* const text = &result[0];
  message.write(text);
  auto const length = static_cast<int>(std::strlen(text));
  if (length < message.encodedBytes) return atr_String(text);
  result.SetStringLength(length);
  return result;
}
