// A batch: characters that are converted many at a time, without a look at the rows for each.
#ifndef ATR_ENCODING_BATCH_H
#define ATR_ENCODING_BATCH_H

#include <cstddef>

namespace atr {

/// Where a conversion stands.
struct Position {
  unsigned char const* text;  ///< the next byte to read
  unsigned char* out;         ///< the next byte to write; null while measuring
  std::size_t total;          ///< bytes of output so far
};

inline unsigned char const* textAt(Position const& at) noexcept { return at.text; }

/// A way to convert batches from one encoding to another. It gives what the rows give.
struct Batches {
  /// Converts the characters from `at` up to `end`, or up to the first that it leaves to the rows.
  /// Null if there is no such way.
  Position (*convert)(Position at, unsigned char const* end);

  /// Characters that the rows convert before the next try. 0 if a try costs nothing.
  int pause;
};

/// The batches for two encodings, in the locale that is in force.
Batches batchesBetween(int target, int source) noexcept;

}  // namespace atr

#endif  // ATR_ENCODING_BATCH_H
