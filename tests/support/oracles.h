// Slow and plain forms of what the library does, word for word, which tests and fuzz targets hold
// the library against.
#ifndef ATR_TESTS_SUPPORT_ORACLES_H
#define ATR_TESTS_SUPPORT_ORACLES_H

#include <climits>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace test {

/// A dictionary text with its escapes decoded, up to the first NUL that comes out.
std::string decodeEscapes(std::string const& text);

/// The finished text of a template whose conversion at rank k is given values[k - 1], as it is.
/// Ranks without a value give nothing.
std::string formatMessage(std::string const& text, std::vector<std::string> const& values);

/// `text` in the field of a conversion specification.
std::string fitField(std::string const& text, std::string const& format);

/// `text` folded at `limit`, all of it as one run of words. `step` gives the bytes of the character
/// at a position.
using CharacterStep = std::function<std::size_t(std::string const& text, std::size_t at)>;
std::string breakLine(std::string const& text, std::size_t limit, CharacterStep const& step);

}  // namespace test

#endif  // ATR_TESTS_SUPPORT_ORACLES_H
