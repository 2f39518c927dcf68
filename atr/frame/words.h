// Eight bytes of a text at a time, in a 64-bit word: what the fast forms of searches and walks
// share.
#ifndef ATR_FRAME_WORDS_H
#define ATR_FRAME_WORDS_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace atr {

static_assert(std::endian::native == std::endian::little,
              "the first byte of a text is the lowest one of its word");

constexpr std::ptrdiff_t kWord = sizeof(std::uint64_t);
constexpr std::uint64_t kLowBits = 0x0101010101010101;   // of each byte
constexpr std::uint64_t kHighBits = 0x8080808080808080;  // likewise

/// @pre `p` has eight readable bytes.
inline std::uint64_t loadWord(void const* p) noexcept {
  std::uint64_t word;
  std::memcpy(&word, p, sizeof word);
  return word;
}

/// A word of one byte eight times.
constexpr std::uint64_t wordOf(char byte) noexcept {
  return kLowBits * static_cast<unsigned char>(byte);
}

/// The high bit of each byte of `word` that is 0, and no other bit.
constexpr std::uint64_t zeroBytes(std::uint64_t word) noexcept {
  return ~(((word & ~kHighBits) + ~kHighBits) | word | ~kHighBits);
}

/// The bytes that have their high bit set in `marks`, a word of high bits.
constexpr int countMarks(std::uint64_t marks) noexcept {
  return static_cast<int>((marks >> 7) * kLowBits >> 56);
}

/// The index of the first byte marked. @pre there is one.
constexpr int firstMark(std::uint64_t marks) noexcept { return std::countr_zero(marks) / 8; }

/// Copies the first and the last `Piece` of a text, which may overlap.
template <class Piece>
inline void copyEnds(char* out, char const* from, std::size_t bytes) noexcept {
  Piece first;
  Piece last;
  std::memcpy(&first, from, sizeof first);
  std::memcpy(&last, from + bytes - sizeof last, sizeof last);
  std::memcpy(out, &first, sizeof first);
  std::memcpy(out + bytes - sizeof last, &last, sizeof last);
}

/// As memcpy, without a call for up to 16 bytes. `from` may be null for no bytes.
inline void copyBytes(char* out, char const* from, std::size_t bytes) noexcept {
  if (bytes > 16) {
    std::memcpy(out, from, bytes);
  } else if (bytes >= 8) {
    copyEnds<std::uint64_t>(out, from, bytes);
  } else if (bytes >= 4) {
    copyEnds<std::uint32_t>(out, from, bytes);
  } else if (bytes > 0) {
    out[0] = from[0];
    out[bytes / 2] = from[bytes / 2];
    out[bytes - 1] = from[bytes - 1];
  }
}

/// As copyBytes; the two may overlap if `out` is not behind `from`.
inline void moveBytesDown(char* out, char const* from, std::size_t bytes) noexcept {
  if (bytes > 16) {
    std::memmove(out, from, bytes);
  } else {
    copyBytes(out, from, bytes);  // loads both ends before it stores; its single bytes go upwards
  }
}

/// As copyBytes, without a call for up to 64 bytes.
inline void copyText(char* out, char const* from, std::size_t bytes) noexcept {
  struct TwoWords {
    std::uint64_t words[2];
  };
  if (bytes <= 16 || bytes > 64) return copyBytes(out, from, bytes);
  copyEnds<TwoWords>(out, from, bytes);
  if (bytes > 32) copyEnds<TwoWords>(out + 16, from + 16, bytes - 32);
}

}  // namespace atr

#endif  // ATR_FRAME_WORDS_H
