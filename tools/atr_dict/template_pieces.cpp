// Collects what the library's scanner finds in a template.
#include "template_pieces.h"

#include <algorithm>
#include <cctype>
#include <string>

#include "atr/format/template_grammar.h"

namespace dict {

namespace {

// Takes the scanner's pieces. Only the first sign of a pair of percent signs is told to nobody.
class Cutter {
 public:
  Cutter(std::vector<TemplatePiece>& pieces, char const* begin) : pieces_(pieces), at_(begin) {}

  void text(char const* begin, char const* end) {
    if (begin != at_) add(TemplatePiece::percent, begin + 1);
    if (at_ != end) add(TemplatePiece::text, end);
  }

  void conversion(atr::detail::Conversion const& c) {
    add(TemplatePiece::conversion, c.letter + 1);
    TemplatePiece& piece = pieces_.back();
    piece.position = c.number;
    piece.layout = {c.layout, static_cast<std::size_t>(c.letter - c.layout)};
    piece.letter = *c.letter;
  }

  void lost(atr::detail::Conversion const& c) { add(TemplatePiece::lost, c.letter); }

 private:
  void add(TemplatePiece::Kind kind, char const* end) {
    pieces_.push_back({kind, {at_, static_cast<std::size_t>(end - at_)}, 0, {}, '\0'});
    at_ = end;
  }

  std::vector<TemplatePiece>& pieces_;
  char const* at_;
};

}  // namespace

// The scanner reads the byte behind the end, which is a NUL in a copy.
std::vector<TemplatePiece> cutTemplate(std::string_view text) {
  std::string const copy(text);
  char const* const begin = copy.c_str();
  std::vector<TemplatePiece> pieces;
  Cutter cutter(pieces, begin);
  atr::detail::scanTemplate(begin, begin + copy.size(), atr::detail::findPercentByBytes, cutter);
  for (TemplatePiece& piece : pieces) {
    auto const rebase = [&](std::string_view& view) {
      if (!view.empty()) view = {text.data() + (view.data() - begin), view.size()};
    };
    rebase(piece.bytes);
    rebase(piece.layout);
  }
  return pieces;
}

std::vector<TemplatePiece> rankedConversions(std::vector<TemplatePiece> const& pieces) {
  std::vector<TemplatePiece> ranked;
  for (TemplatePiece const& piece : pieces) {
    if (piece.kind == TemplatePiece::conversion) ranked.push_back(piece);
  }
  std::vector<char> marks(ranked.size() + 1);
  atr::detail::numberSlots(ranked.data(), static_cast<int>(ranked.size()), marks.data());
  std::stable_sort(
      ranked.begin(), ranked.end(),
      [](TemplatePiece const& a, TemplatePiece const& b) { return a.position < b.position; });
  return ranked;
}

bool isAttempt(std::string_view lost, std::string_view behind, std::size_t& attempt) {
  std::string const all = std::string(lost) + std::string(behind);
  std::size_t const flags = all.find_first_not_of("0123456789$", 1);
  std::size_t const field = all.find_first_not_of("-+ #'", flags);
  std::size_t const size = all.find_first_not_of("0123456789.*-", field);
  std::size_t const letter = all.find_first_not_of("hlLqjzt", size);
  if (letter == all.npos) return false;
  constexpr std::string_view kLetters = "diouxXeEfFgGaAcspnCS";
  if (kLetters.find(all[letter]) == kLetters.npos) return false;
  bool const hasBlank = all.find(' ') < letter;
  bool const isInWord =
      letter + 1 < all.size() && std::isalpha(static_cast<unsigned char>(all[letter + 1])) != 0;
  attempt = letter + 1;
  return !hasBlank || (!isInWord && static_cast<signed char>(all[letter + 1]) >= 0);
}

}  // namespace dict
