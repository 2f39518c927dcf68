// The lines of a dictionary, where they stand in a buffer.
#ifndef ATR_TRANSLATION_LINE_READER_H
#define ATR_TRANSLATION_LINE_READER_H

#include <cstddef>
#include <cstdio>

#include "atr/frame/platform.h"

namespace atr {

/// Delivers what fgets with a buffer of 8192 bytes would, without its copies; a line end of CR LF
/// reads as LF on every platform. A last line that a failure of the file cuts off is dropped.
class LineReader {
 public:
  /// Starts where `stream` stands. It stays the caller's.
  /// @param areJoined whether the stream itself makes LF of CR LF.
  explicit LineReader(std::FILE* stream, bool areJoined = platform::hasTextMode) noexcept
      : stream_(stream), areJoined_(areJoined) {
    start();
  }

  /// The next line, with its newline if that fitted and a NUL behind it, or null at the end. The
  /// caller may write to it up to that NUL, until the next call.
  /// @param bytes set to what stands in front of the line's first NUL.
  char* next(std::ptrdiff_t& bytes) noexcept;

  /// Bytes of the line last delivered with those behind a NUL of its own, and bytes of the stream
  /// that it was made from: one more for a line end of CR LF. Good until the next call.
  std::ptrdiff_t wholeBytes() const noexcept { return nul_ - line_; }
  std::ptrdiff_t sourceBytes() const noexcept { return begin_ - line_; }

  /// Starts again at the beginning of the file.
  void rewind() noexcept;

 private:
  static constexpr std::ptrdiff_t kMaxLine = 8191;  // bytes; a longer line comes in pieces
  static constexpr std::ptrdiff_t kRoom = 2 * (kMaxLine + 1);

  void start() noexcept;
  char* findNewline() const noexcept;
  void refill() noexcept;
  char* joinLineEnd(char const* line, char* end) noexcept;

  std::FILE* stream_;
  bool areJoined_;
  char* line_;    // last delivered
  char* begin_;   // what was not delivered yet
  char* end_;     // of it; a byte of room is behind
  char* nul_;     // behind the line last delivered
  char behind_;   // what the NUL stands in the place of
  bool isAtEnd_;  // nothing is left in the file
  bool hasNul_;   // in the buffer, of the file's own
  char buffer_[kRoom + 1];
};

}  // namespace atr

#endif  // ATR_TRANSLATION_LINE_READER_H
