// One step of a walk over the characters of the process locale, safe at the end of a text and at
// bytes that are no character.
#ifndef ATR_FRAME_CHARACTER_STEP_H
#define ATR_FRAME_CHARACTER_STEP_H

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "atr/frame/platform.h"

namespace atr {

constexpr std::ptrdiff_t kCharacterLook = 4;  // the most bytes one character is looked at for

/// True if a character of `bytes` bytes at `p` takes the terminator of its text along: some code
/// pages have pairs of any lead byte and a NUL.
inline bool takesNul(char const* p, int bytes) noexcept {
  return bytes > 1 && std::memchr(p, 0, static_cast<std::size_t>(bytes)) != nullptr;
}

/// Bytes from `p`, which is before `end`, to the next character. What the runtime refuses is a
/// character of one byte; so is a lead byte in front of a NUL.
inline int characterStep(char const* p, char const* end) noexcept {
  auto const bound = static_cast<std::size_t>(std::min(end - p, kCharacterLook));
  int const bytes = platform::characterBytes(p, bound);
  return bytes <= 1 || takesNul(p, bytes) ? 1 : bytes;
}

}  // namespace atr

#endif  // ATR_FRAME_CHARACTER_STEP_H
