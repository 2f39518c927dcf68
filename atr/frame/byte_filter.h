// A set of bytes, and the copy of a text that leaves them out.
#ifndef ATR_FRAME_BYTE_FILTER_H
#define ATR_FRAME_BYTE_FILTER_H

#include <array>

namespace atr {

class ByteFilter {
 public:
  /// Drops the bytes of `set`, up to its NUL, which is kept.
  explicit ByteFilter(char const* set) noexcept;

  bool drops(char byte) const noexcept { return kept_[static_cast<unsigned char>(byte)] == 0; }

  /// Copies what is kept of [p, end) to `out`, which has room for all of it, and may be `p` or
  /// stand before it in one text. @return where the copy ends; what of the room is behind is
  /// undefined.
  char* copy(char* out, char const* p, char const* end) const noexcept;

  /// The same, the same way on every processor.
  char* copyByWords(char* out, char const* p, char const* end) const noexcept;

 private:
  char* copyByVectors(char* out, char const* p, char const* end) const noexcept;

  std::array<unsigned char, 256> kept_;            // 0 or 1
  std::array<unsigned char, 16> droppedAscii_{};   // by the low half, a bit for each high half
  std::array<unsigned char, 16> droppedOthers_{};  // likewise, from 0x80 on
};

}  // namespace atr

#endif  // ATR_FRAME_BYTE_FILTER_H
