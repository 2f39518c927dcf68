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

/// Bytes from `p`, which is before `end`, to the next character. What the runtime refuses is a
/// character of one byte; so is a lead byte before a NUL, which some code pages take for a pair.
inline int characterStep(char const* p, char const* end) noexcept {
  auto const bound = static_cast<std::size_t>(std::min(end - p, kCharacterLook));
  int const bytes = platform::characterBytes(p, bound);
  if (bytes <= 1 || std::memchr(p, 0, static_cast<std::size_t>(bytes)) != nullptr) return 1;
  return bytes;
}

}  // namespace atr

#endif  // ATR_FRAME_CHARACTER_STEP_H
