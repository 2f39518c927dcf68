// The scan of templates as the library does it: the grammar with a search for percent signs that
// looks at eight bytes at a time.
#ifndef ATR_FORMAT_TEMPLATE_SCAN_H
#define ATR_FORMAT_TEMPLATE_SCAN_H

#include <cstddef>
#include <cstdint>

#include "atr/format/template_grammar.h"
#include "atr/frame/words.h"

namespace atr {

using detail::Conversion;
using detail::isDigit;
using detail::readNumber;

/// The first percent sign in [p, end), or `end`.
inline char const* findPercent(char const* p, char const* end) noexcept {
  for (; kIsLittleEndian && end - p >= kWord; p += kWord) {
    std::uint64_t const marks = zeroBytes(loadWord(p) ^ wordOf('%'));
    if (marks != 0) return p + firstMark(marks);
  }
  return detail::findPercentByBytes(p, end);
}

/// As detail::scanTemplate, by words.
template <class Sink>
void scanTemplate(char const* p, char const* end, Sink& sink) {
  detail::scanTemplate(
      p, end, [](char const* from, char const* to) noexcept { return findPercent(from, to); },
      sink);
}

/// The counting pass: an upper bound of the conversions in [p, end).
inline std::size_t countPercents(char const* p, char const* end) noexcept {
  std::size_t count = 0;
  while ((p = findPercent(p, end)), end - p >= 2) {
    bool const isPair = p[1] == '%';
    count += isPair ? 0 : 1;
    p += isPair ? 2 : 1;
  }
  return count;
}

}  // namespace atr

#endif  // ATR_FORMAT_TEMPLATE_SCAN_H
