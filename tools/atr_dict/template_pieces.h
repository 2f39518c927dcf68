// A template cut by the library's own scanner: its texts, its conversions, and what vanishes.
#ifndef ATR_TOOLS_ATR_DICT_TEMPLATE_PIECES_H
#define ATR_TOOLS_ATR_DICT_TEMPLATE_PIECES_H

#include <cstddef>
#include <string_view>
#include <vector>

namespace dict {

struct TemplatePiece {
  enum Kind { text, percent, conversion, lost };
  Kind kind;
  std::string_view bytes;  // as in the template; `%%` for a percent sign
  // of a conversion:
  int position = 0;  // its number, or Conversion::kNoNumber
  std::string_view layout;
  char letter = '\0';
};

/// The pieces of a template, which `text` is kept for. Together they are the whole of it.
std::vector<TemplatePiece> cutTemplate(std::string_view text);

/// The conversions among the pieces by rank, each with a number.
std::vector<TemplatePiece> rankedConversions(std::vector<TemplatePiece> const& pieces);

/// True if a lost piece was meant as a conversion, as in `%i` and `% s`, and not as a percent sign.
/// @param behind what follows the piece in the template.
/// @param attempt set to the bytes of the attempt, from the percent sign to its letter.
bool isAttempt(std::string_view lost, std::string_view behind, std::size_t& attempt);

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_TEMPLATE_PIECES_H
