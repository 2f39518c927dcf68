// Steps over the characters of good UTF-8.
#ifndef ATR_ENCODING_UTF8_WALK_H
#define ATR_ENCODING_UTF8_WALK_H

namespace atr {

/// What every row's decoder answers where there is no character.
constexpr unsigned int kNoCode = 0xFFFFFFFF;

constexpr bool isContinuation(unsigned char byte) noexcept { return (byte & 0xC0) == 0x80; }

}  // namespace atr

/// The next character: one byte on at a byte that cannot begin one. Continuation bytes are not
/// looked at, so at the end of a text this needs a character that is complete.
unsigned char const* atr_utf8_next(unsigned char const* position) noexcept;

/// The character before `position`, or the byte before it where no character ends there.
/// @pre there is one, and continuation bytes do not run back to the start of the buffer.
unsigned char const* atr_utf8_prev(unsigned char const* position) noexcept;

#endif  // ATR_ENCODING_UTF8_WALK_H
