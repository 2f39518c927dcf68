// The one place that chooses between the ways to convert batches.
#include "atr/encoding/batch.h"

#include "atr/encoding/locale_batches.h"
#include "atr/encoding/named_batches.h"
#include "atr/encoding/transcoding.h"
#include "atr/frame/platform.h"

namespace atr {

namespace {

using platform::Codeset;

bool isUtf8(int encoding, Codeset codeset) noexcept {
  return encoding == EncodingUtf8 || (encoding == EncodingLocale && codeset == Codeset::utf8);
}

bool isSingleByte(int encoding, Codeset codeset) noexcept {
  return encoding == EncodingSingleByte ||
         (encoding == EncodingLocale && codeset == Codeset::latin1);
}

}  // namespace

// The codeset is asked for once, and only if the locale takes part.
Batches batchesBetween(int target, int source) noexcept {
  bool const asksLocale = target == EncodingLocale || source == EncodingLocale;
  Codeset const codeset = asksLocale ? platform::currentCodeset() : Codeset::other;
  if (isUtf8(source, codeset) && isUtf8(target, codeset)) return {copyUtf8, 0};
  if (isUtf8(source, codeset) && isSingleByte(target, codeset)) return {narrowUtf8, 0};
  if (isSingleByte(source, codeset) && isUtf8(target, codeset)) return {widenToUtf8, 0};
  if (codeset != Codeset::stateless) return {nullptr, 0};
  if (source == EncodingUtf8 && target == EncodingLocale) return {encodeForLocale, kLocalePause};
  if (source == EncodingLocale && target == EncodingUtf8) return {decodeFromLocale, 0};
  return {nullptr, 0};
}

}  // namespace atr
