// One call of the runtime converts platform::kBatch characters. A call for each of them costs most
// of the time of a conversion by rows.
#include "atr/encoding/locale_batches.h"

#include <cstring>

#include "atr/encoding/utf8.h"
#include "atr/frame/platform.h"

namespace atr {

namespace {

// Codes of UTF-8, and where each of them begins in the text.
struct Codes {
  unsigned int code[platform::kBatch];
  unsigned char const* start[platform::kBatch + 1];
  int count;
};

// Stops before a code that the runtime may not be given: 0, a failure, or a code that is too large.
Codes decodeUtf8(unsigned char const* text, unsigned char const* end) noexcept {
  Codes codes;
  codes.start[0] = text;
  for (codes.count = 0; codes.count < platform::kBatch; ++codes.count) {
    unsigned char const* const p = codes.start[codes.count];
    if (p >= end) break;
    int bytes = 0;
    unsigned int const code = atr_utf8_to_ucs4(p, &bytes);
    if (code == 0 || code > platform::kMaxBatchCode) break;
    codes.code[codes.count] = code;
    codes.start[codes.count + 1] = p + bytes;
  }
  return codes;
}

}  // namespace

Position encodeForLocale(Position at, unsigned char const* end) noexcept {
  for (;;) {
    Codes const codes = decodeUtf8(at.text, end);
    int taken = codes.count;
    char batch[platform::kBatchRoom];
    std::size_t const bytes = platform::encodeBatch(batch, codes.code, taken);
    if (at.out != nullptr) {
      std::memcpy(at.out, batch, bytes);
      at.out += bytes;
    }
    at = {codes.start[taken], at.out, at.total + bytes};
    if (taken < platform::kBatch) return at;
  }
}

Position decodeFromLocale(Position at, unsigned char const* end) noexcept {
  for (;;) {
    unsigned int codes[platform::kBatch];
    auto const* text = reinterpret_cast<char const*>(at.text);
    int const count = platform::decodeBatch(codes, text, reinterpret_cast<char const*>(end));
    at.text = reinterpret_cast<unsigned char const*>(text);
    for (int i = 0; i < count; ++i) {
      bool const isWriting = at.out != nullptr;
      int const bytes = isWriting ? atr_utf8_from_ucs4(at.out, codes[i]) : atr_utf8_len(codes[i]);
      if (isWriting) at.out += bytes;
      at.total += static_cast<std::size_t>(bytes);
    }
    if (count < platform::kBatch) return at;
  }
}

}  // namespace atr
