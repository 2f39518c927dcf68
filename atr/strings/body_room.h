// How much room a body is given: a short one fills whole units of 32 bytes together with its
// header, a longer one has none to spare. Also what layout and formatting reckon with when they
// build in one step what is defined in many.
#ifndef ATR_STRINGS_BODY_ROOM_H
#define ATR_STRINGS_BODY_ROOM_H

#include <climits>
#include <cstdint>
#include <new>

namespace atr {

constexpr int kHeaderBytes = 12;
constexpr int kUnitBytes = 32;      // an inline representation fills whole units
constexpr int kMaxInlineUnits = 7;  // beside the first one
constexpr int kUnitRounding = 17;   // bytes added to a capacity before it is cut to units
constexpr int kMaxInlineCapacity = kUnitBytes * (kMaxInlineUnits + 1) - 1 - kUnitRounding;
constexpr int kMaxCapacity = INT_MAX - 1;  // an int counts the text and its NUL

/// The `size` of an inline representation: what whole units leave beside the header.
constexpr int inlineBodySize(int capacity) noexcept {
  return ((capacity + kUnitRounding) & -kUnitBytes) + kUnitBytes - kHeaderBytes;
}

/// The `size` of a representation that is made for `capacity` bytes of text. An int holds it up to
/// kMaxCapacity; a borrowed text may be a byte longer.
constexpr std::int64_t bodySize(int capacity) noexcept {
  return capacity <= kMaxInlineCapacity ? inlineBodySize(capacity) : std::int64_t{capacity} + 1;
}

/// True if both capacities lead to bodies of one size and kind. An inline body of 244 bytes and a
/// separate one of 244 are told apart.
constexpr bool isSameRoom(int capacity, int other) noexcept {
  bool const areInline = capacity <= kMaxInlineCapacity;
  return bodySize(capacity) == bodySize(other) && areInline == (other <= kMaxInlineCapacity);
}

/// A length that a string can have, or std::bad_alloc. A count of any integer type.
template <class Bytes>
int checkedLength(Bytes bytes) {
  if (bytes > Bytes{kMaxCapacity}) throw std::bad_alloc();
  return static_cast<int>(bytes);
}

/// What a sole owner's room comes to when it grows text by text, without the blocks in between.
class BodyRoom {
 public:
  /// The text grows to `length` bytes.
  void growTo(int length) noexcept {
    if (capacity_ < 0 || bodySize(capacity_) <= length) capacity_ = length;
  }

  /// The capacity that the last move asked for.
  int capacity() const noexcept { return capacity_; }

 private:
  int capacity_ = -1;
};

}  // namespace atr

#endif  // ATR_STRINGS_BODY_ROOM_H
