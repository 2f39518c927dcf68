// Values go by rank: the conversions of a text beside those of its key, rank by rank.
#include <algorithm>
#include <cstdlib>

#include "atr/format/conversion_layout.h"
#include "checks.h"
#include "messages.h"
#include "plural.h"
#include "template_pieces.h"

namespace dict {

namespace {

using Pieces = std::vector<TemplatePiece>;

bool losesSomething(Pieces const& pieces) {
  return std::any_of(pieces.begin(), pieces.end(),
                     [](TemplatePiece const& p) { return p.kind == TemplatePiece::lost; });
}

enum class Kind { integer, bits, floating, text };

// Each letter that shows a number in a notation of its own is a kind by itself.
Kind kindOf(char letter) {
  if (letter == 's') return Kind::text;
  if (letter == 'd' || letter == 'u') return Kind::integer;
  return std::string_view("eEfg").find(letter) != std::string_view::npos ? Kind::floating
                                                                         : Kind::bits;
}

class ConversionCheck {
 public:
  ConversionCheck(Findings& findings, Entry const& entry)
      : findings_(findings),
        entry_(entry),
        keyPieces_(cutTemplate(withoutTail(entry.key))),
        textPieces_(cutTemplate(entry.text)),
        key_(rankedConversions(keyPieces_)),
        text_(rankedConversions(textPieces_)) {}

  void run() {
    checkLost(keyPieces_, entry_.key, true);
    checkLost(textPieces_, entry_.text, false);
    for (TemplatePiece const& conversion : text_) checkField(conversion);
    // A key that loses something and has no values is shown as it stands, and so is its text.
    if (key_.empty() && losesSomething(keyPieces_)) return;
    std::size_t const common = std::min(key_.size(), text_.size());
    // Where one is missing, the others move up, and their letters say nothing more.
    if (key_.size() > common) return reportMissing();
    for (std::size_t i = 0; i < common; ++i) checkLetter(key_[i], text_[i]);
    for (std::size_t i = common; i < text_.size(); ++i) reportExtra(text_[i]);
    if (key_.size() == text_.size()) checkNumbers();
  }

 private:
  char const* placeOf(std::string_view whole, TemplatePiece const& piece, bool isKey) const {
    auto const offset = static_cast<std::size_t>(piece.bytes.data() - whole.data());
    return isKey ? keyPlace(entry_, offset) : textPlace(entry_, offset);
  }
  char const* placeInText(TemplatePiece const& piece) const {
    return placeOf(entry_.text, piece, false);
  }

  void checkLost(Pieces const& pieces, std::string_view whole, bool isKey);
  void checkField(TemplatePiece const& conversion);
  void checkLetter(TemplatePiece const& inKey, TemplatePiece const& inText);
  void checkNumbers();
  void reportMissing();
  void reportExtra(TemplatePiece const& conversion);

  Findings& findings_;
  Entry const& entry_;
  Pieces keyPieces_;
  Pieces textPieces_;
  Pieces key_;   // by rank
  Pieces text_;  // by rank
};

// A percent sign that the key loses as well is text: such a message has no values.
void ConversionCheck::checkLost(Pieces const& pieces, std::string_view whole, bool isKey) {
  bool const isPlainText = losesSomething(keyPieces_) && key_.empty();
  for (TemplatePiece const& piece : pieces) {
    if (piece.kind != TemplatePiece::lost) continue;
    auto const end =
        static_cast<std::size_t>(piece.bytes.data() - whole.data()) + piece.bytes.size();
    std::size_t attempt = 0;
    bool const isMeant = isAttempt(piece.bytes, whole.substr(end), attempt);
    char const* const at = placeOf(whole, piece, isKey);
    if (isMeant &&
        (!isPlainText || piece.bytes.find(' ') != std::string_view::npos || whole[end] != ' ')) {
      std::string const shown(whole.substr(end - piece.bytes.size(), attempt));
      findings_.add(Rule::unknownConversion, at,
                    say("\"%s\" is no conversion: its value is lost", toLocale(shown)),
                    say("the letters are E X c d e f g o s u x; flags are - and 0"));
    } else if (!isMeant && !isKey && !losesSomething(keyPieces_)) {
      findings_.add(Rule::lostPercent, at, say("this percent sign vanishes"),
                    say("write %%%% for a percent sign"));
    }
  }
}

// The parts of a layout that the library bounds; a text's own width is not bounded.
void ConversionCheck::checkField(TemplatePiece const& conversion) {
  if (conversion.letter == 's') return;
  long longest = 0;
  for (std::size_t i = 0; i < conversion.layout.size();) {
    std::size_t const digits = conversion.layout.find_first_not_of("0123456789", i);
    std::size_t const end = std::min(digits, conversion.layout.size());
    std::string const number(conversion.layout.substr(i, std::min<std::size_t>(end - i, 9)));
    longest = std::max(longest, std::strtol(number.c_str(), nullptr, 10));
    i = end + 1;
  }
  if (longest <= atr::kMaxField) return;
  findings_.add(
      Rule::wideField, placeInText(conversion),
      say("a width or precision of %d is cut to %d", static_cast<int>(longest), atr::kMaxField));
}

void ConversionCheck::checkLetter(TemplatePiece const& inKey, TemplatePiece const& inText) {
  if (inKey.letter == inText.letter) return;
  Kind const before = kindOf(inKey.letter);
  Kind const after = kindOf(inText.letter);
  bool const hasBits = before == Kind::bits || after == Kind::bits;
  if (before == after && !hasBits) return;
  std::string const keys = toLocale(inKey.bytes);
  std::string const texts = toLocale(inText.bytes);
  bool const hasText = before == Kind::text || after == Kind::text;
  Rule const rule = hasText && !hasBits ? Rule::changedKind : Rule::changedLetter;
  findings_.add(rule, placeInText(inText),
                say("\"%s\" shows the value of \"%s\" in another way", texts, keys),
                say("keep the letter of the key; values go by the order of their numbers"));
}

// Only where nothing is missing: what is missing makes ranks and numbers differ anyway.
void ConversionCheck::checkNumbers() {
  for (std::size_t i = 0; i < text_.size(); ++i) {
    if (text_[i].position == static_cast<int>(i) + 1) continue;
    bool const isTwice = i > 0 && text_[i].position == text_[i - 1].position;
    findings_.add(Rule::numberOrder, placeInText(text_[i]),
                  isTwice ? say("the number of \"%s\" comes twice; it shows value %d",
                                toLocale(text_[i].bytes), static_cast<int>(i) + 1)
                          : say("\"%s\" shows value %d: the order of the numbers counts",
                                toLocale(text_[i].bytes), static_cast<int>(i) + 1));
    return;
  }
}

void ConversionCheck::reportMissing() {
  std::string names;
  for (std::size_t i = 0; i < key_.size(); ++i) {
    bool const isThere =
        std::any_of(text_.begin(), text_.end(), [&](TemplatePiece const& conversion) {
          return conversion.position == static_cast<int>(i) + 1;
        });
    if (!isThere) names += (names.empty() ? "" : ", ") + toLocale(key_[i].bytes);
  }
  if (names.empty()) names = toLocale(key_.back().bytes);
  // A value of the newline alone ends on the next line.
  std::string_view const line = findings_.dictionary().lineOf(entry_).text;
  char const* const end =
      std::min(entry_.rawValue.data() + entry_.rawValue.size(), line.data() + line.size());
  findings_.add(Rule::missingConversion, end,
                say("the text has no place for %s; %d of %d values are shown", names,
                    static_cast<int>(text_.size()), static_cast<int>(key_.size())),
                say("values go by rank: what remains moves up"));
}

void ConversionCheck::reportExtra(TemplatePiece const& conversion) {
  findings_.add(Rule::extraConversion, placeInText(conversion),
                say("\"%s\" gets no value and shows nothing: the key has %d",
                    toLocale(conversion.bytes), static_cast<int>(key_.size())),
                say("write %%%% for a percent sign"));
}

}  // namespace

void checkConversions(Findings& findings) {
  for (Entry const& entry : findings.dictionary().entries) {
    bool const hasPercent = entry.key.find('%') != std::string_view::npos ||
                            entry.text.find('%') != std::string_view::npos;
    if (entry.fate != Fate::stored || !hasPercent || entry.key == kPluralRuleKey) continue;
    ConversionCheck(findings, entry).run();
  }
}

}  // namespace dict
