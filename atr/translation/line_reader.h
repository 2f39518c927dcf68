// Reads the lines of a dictionary without copying them out of the file buffer.
#ifndef ATR_TRANSLATION_LINE_READER_H
#define ATR_TRANSLATION_LINE_READER_H

#include <cstddef>
#include <cstdio>

#include "atr/frame/platform.h"

namespace atr {

/// Returns the lines that fgets with a buffer of 8192 bytes would: a longer line comes in pieces.
/// CR LF reads as LF on every platform. If reading the file fails, the incomplete last line is
/// dropped.
class LineReader {
 public:
  /// Starts at the current position of `stream`, which stays the caller's and must outlive this.
  /// @param areJoined true if the stream itself turns CR LF into LF.
  explicit LineReader(std::FILE* stream, bool areJoined = platform::hasTextMode) noexcept
      : stream_(stream), areJoined_(areJoined) {
    start();
  }

  /// The next line, its newline included, with a NUL behind it; null at the end of the file. The
  /// caller may write to the line, up to that NUL, until the next call.
  /// @param bytes is set to the number of bytes in front of the line's first NUL.
  char* next(std::ptrdiff_t& bytes) noexcept;

  /// Bytes of the last line, those behind a NUL within it included. Valid until the next call.
  std::ptrdiff_t wholeBytes() const noexcept { return nul_ - line_; }

  /// Bytes of the stream that the last line was made from: one more if it ended in CR LF. Valid
  /// until the next call.
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
  char* line_;    // the last line returned
  char* begin_;   // of the bytes that are in the buffer and not returned yet
  char* end_;     // of these bytes; one byte of room follows
  char* nul_;     // the NUL that was put behind the last line
  char behind_;   // the byte that this NUL has replaced
  bool isAtEnd_;  // the whole file has been read
  bool hasNul_;   // the file itself has a NUL in the buffer
  char buffer_[kRoom + 1];
};

}  // namespace atr

#endif  // ATR_TRANSLATION_LINE_READER_H
