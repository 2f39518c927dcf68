// Strict UTF-8: shortest forms, no surrogates, codes up to U+10FFFF. Every decoder of UTF-8 gives
// the same for it, so that it can be validated and copied without being decoded.
#ifndef ATR_ENCODING_STRICT_UTF8_H
#define ATR_ENCODING_STRICT_UTF8_H

namespace atr {

/// Skips strict characters of [p, end) until it is at `until` or behind it. Character by character.
/// @return where it stopped: before `until` only at a character that is not strict.
unsigned char const* skipStrictUtf8(unsigned char const* p, unsigned char const* until,
                                    unsigned char const* end) noexcept;

/// The same up to `end`, by chunks. Ahead of the plain form from about a hundred bytes on: see the
/// benchmark "validate UTF-8 4 kB".
unsigned char const* skipStrictUtf8ByChunks(unsigned char const* p,
                                            unsigned char const* end) noexcept;

/// The end of the ASCII prefix of [p, end), eight bytes at a time.
unsigned char const* skipAscii(unsigned char const* p, unsigned char const* end) noexcept;

}  // namespace atr

#endif  // ATR_ENCODING_STRICT_UTF8_H
