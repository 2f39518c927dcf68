// The buffer holds two longest lines. When the rest of it may be only the beginning of a line, the
// rest moves to the front and the buffer is filled up from the file.
#include "atr/translation/line_reader.h"

#include <algorithm>
#include <cstring>

namespace atr {

void LineReader::start() noexcept {
  line_ = begin_ = end_ = nul_ = buffer_;
  behind_ = *nul_ = '\0';
  isAtEnd_ = hasNul_ = false;
}

void LineReader::rewind() noexcept {
  std::rewind(stream_);
  start();
}

char* LineReader::findNewline() const noexcept {
  return static_cast<char*>(
      std::memchr(begin_, '\n', static_cast<std::size_t>(std::min(end_ - begin_, kMaxLine))));
}

namespace {

// In text mode some runtimes end a file at the first byte 0x1A, where fgets ends too; fread reads
// on. Returns the number of bytes in front of it.
std::size_t bytesOfText(char const* read, std::size_t bytes) noexcept {
  constexpr char kEndOfText = 0x1A;
  auto const* const mark = platform::hasTextMode
                               ? static_cast<char const*>(std::memchr(read, kEndOfText, bytes))
                               : nullptr;
  return mark != nullptr ? static_cast<std::size_t>(mark - read) : bytes;
}

}  // namespace

void LineReader::refill() noexcept {
  auto const left = static_cast<std::size_t>(end_ - begin_);
  std::memmove(buffer_, begin_, left);
  std::size_t const room = kRoom - left;
  std::size_t const bytes =
      bytesOfText(buffer_ + left, std::fread(buffer_ + left, 1, room, stream_));
  isAtEnd_ = bytes < room;
  begin_ = buffer_;
  end_ = buffer_ + left + bytes;
  *end_ = '\0';
  hasNul_ = std::memchr(buffer_, '\0', left + bytes) != nullptr;
}

// Turns a CR LF at `end` into LF and returns the line's new end. A piece of the longest length may
// end between the two bytes; the LF is then taken along, as fgets in text mode sees one byte.
char* LineReader::joinLineEnd(char const* line, char* end) noexcept {
  bool const isCut = end - line == kMaxLine && end != end_ && *end == '\n';
  bool const isWhole = end - line >= 2 && end[-1] == '\n';
  char* const pair = end - (isWhole ? 2 : 1);
  if ((!isWhole && !isCut) || *pair != '\r') return end;
  *pair = '\n';
  begin_ = pair + 2;
  return pair + 1;
}

char* LineReader::next(std::ptrdiff_t& bytes) noexcept {
  *nul_ = behind_;
  char* newline = findNewline();
  if (newline == nullptr && end_ - begin_ <= kMaxLine && !isAtEnd_) {
    refill();
    newline = findNewline();
  }
  if (newline == nullptr && end_ - begin_ < kMaxLine &&
      (begin_ == end_ || std::ferror(stream_) != 0)) {
    return nullptr;
  }
  char* const line = line_ = begin_;
  begin_ = newline != nullptr ? newline + 1 : line + std::min(end_ - line, kMaxLine);
  nul_ = areJoined_ ? begin_ : joinLineEnd(line, begin_);
  behind_ = *nul_;
  *nul_ = '\0';
  bytes = hasNul_ ? static_cast<std::ptrdiff_t>(std::strlen(line)) : nul_ - line;
  return line;
}

}  // namespace atr
