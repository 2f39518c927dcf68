// The size of a string's body. A short body and its header together fill whole units of 32 bytes; a
// long body is exactly as large as its text. Line breaking and messages use the same rules: they
// build in one step what is defined as many steps, and must end with the same capacity.
#ifndef ATR_STRINGS_BODY_ROOM_H
#define ATR_STRINGS_BODY_ROOM_H

#include <climits>
#include <cstdint>
#include <new>

namespace atr {

constexpr int kHeaderBytes = 12;
constexpr int kUnitBytes = 32;      // an inline representation fills whole units
constexpr int kMaxInlineUnits = 7;  // beside the first one
constexpr int kUnitRounding = 17;   // bytes added to a capacity before it is rounded down to units
constexpr int kMaxInlineCapacity = kUnitBytes * (kMaxInlineUnits + 1) - 1 - kUnitRounding;
constexpr int kMaxCapacity = INT_MAX - 1;  // an int counts the text and its NUL

/// The `size` of an inline representation: whole units without the header.
constexpr int inlineBodySize(int capacity) noexcept {
  return ((capacity + kUnitRounding) & -kUnitBytes) + kUnitBytes - kHeaderBytes;
}

/// The `size` of a representation made for `capacity` bytes of text. The result has 64 bits because
/// a borrowed text may be one byte longer than kMaxCapacity.
constexpr std::int64_t bodySize(int capacity) noexcept {
  return capacity <= kMaxInlineCapacity ? inlineBodySize(capacity) : std::int64_t{capacity} + 1;
}

/// True if both capacities give bodies of the same size and kind: an inline body of 244 bytes and a
/// separate body of 244 bytes are not the same.
constexpr bool isSameRoom(int capacity, int other) noexcept {
  bool const areInline = capacity <= kMaxInlineCapacity;
  return bodySize(capacity) == bodySize(other) && areInline == (other <= kMaxInlineCapacity);
}

/// Converts a length to int, or throws std::bad_alloc if no string can be that long.
template <class Bytes>
int checkedLength(Bytes bytes) {
  if (bytes > Bytes{kMaxCapacity}) throw std::bad_alloc();
  return static_cast<int>(bytes);
}

/// The capacity that a string has after it has grown in steps, computed without making the steps.
class BodyRoom {
 public:
  /// The text grows to `length` bytes.
  void growTo(int length) noexcept {
    if (capacity_ < 0 || bodySize(capacity_) <= length) capacity_ = length;
  }

  /// The capacity that the last move to a larger body asked for.
  int capacity() const noexcept { return capacity_; }

 private:
  int capacity_ = -1;
};

}  // namespace atr

#endif  // ATR_STRINGS_BODY_ROOM_H
