// A set of bytes, and the copy of a text that leaves them out.
#ifndef ATR_STRINGS_BYTE_FILTER_H
#define ATR_STRINGS_BYTE_FILTER_H

#include <array>

namespace atr {

class ByteFilter {
 public:
  /// Drops the bytes of `set`, up to its NUL, which is kept.
  explicit ByteFilter(char const* set) noexcept;

  bool drops(char byte) const noexcept { return kept_[static_cast<unsigned char>(byte)] == 0; }

  /// Copies the bytes of [p, end) that the filter keeps to `out`, which has room for all of them.
  /// The copy may be in place: `out` may be `p`, or stand before it in one text.
  /// @return where the copy ends; the rest of the room is undefined.
  char* copy(char* out, char const* p, char const* end) const noexcept;

  /// The same, for every processor.
  char* copyByWords(char* out, char const* p, char const* end) const noexcept;

  /// The same, sixteen bytes at a time. @pre hasByteShuffles(), on x86.
  char* copyByShuffles(char* out, char const* p, char const* end) const noexcept;

 private:
  std::array<unsigned char, 256> kept_;            // 0 or 1
  std::array<unsigned char, 16> droppedAscii_{};   // by the low nibble, a bit for each high nibble
  std::array<unsigned char, 16> droppedOthers_{};  // likewise, from 0x80 on
};

}  // namespace atr

#endif  // ATR_STRINGS_BYTE_FILTER_H
