// The library's own scan of templates: the grammar with a search for percent signs that examines
// eight bytes at a time.
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
  for (; end - p >= kWord; p += kWord) {
    std::uint64_t const marks = zeroBytes(loadWord(p) ^ wordOf('%'));
    if (marks != 0) return p + firstMark(marks);
  }
  return detail::findPercentByBytes(p, end);
}

/// Does what detail::scanTemplate does, with the fast search.
template <class Sink>
void scanTemplate(char const* p, char const* end, Sink& sink) {
  detail::scanTemplate(
      p, end, [](char const* from, char const* to) noexcept { return findPercent(from, to); },
      sink);
}

/// An upper bound of the number of conversions in [p, end): memory is allocated for that many.
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
