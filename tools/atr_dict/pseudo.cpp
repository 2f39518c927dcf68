// `atr-dict pseudo`: a dictionary for tests, which shows what is not translated and where layouts
// break, and stays readable.

#include "asked_keys.h"
#include "commands.h"
#include "entry_text.h"
#include "failure.h"
#include "files.h"
#include "messages.h"
#include "plural.h"
#include "pseudo_text.h"
#include "template_pieces.h"

namespace dict {

namespace {

// The line breaker's test mode does not count these two characters.
constexpr std::string_view kTestMarker = "\u30BD\u30FC";

constexpr std::string_view kPlainLetters = "AEIOUYCNaeiouycn";
constexpr std::string_view kAccented[] = {"Á", "É", "Í", "Ó", "Ú", "Ý", "Ç", "Ñ",
                                          "á", "é", "í", "ó", "ú", "ý", "ç", "ñ"};

// Sets accents, and counts the characters that they stand on or between.
std::string accented(std::string_view text, std::size_t& characters) {
  std::string result;
  for (char const c : text) {
    std::size_t const letter = kPlainLetters.find(c);
    result += letter != kPlainLetters.npos ? kAccented[letter] : std::string_view(&c, 1);
    characters += (static_cast<unsigned char>(c) & 0xC0) != 0x80 ? 1 : 0;
  }
  return result;
}

// Words that lines can be broken between.
std::string padding(std::size_t characters) {
  constexpr std::size_t kWord = 6;
  std::string result;
  for (std::size_t i = 0; i < characters; ++i) result += i % kWord == 0 ? " " : "ö";
  return result;
}

}  // namespace

std::string pseudoText(std::string_view key) {
  std::string result(kTestMarker);
  std::size_t characters = 0;
  std::string_view const text = withoutTail(key);
  std::size_t const end = text.find_last_not_of(" .:!?\n") + 1;
  for (TemplatePiece const& piece : cutTemplate(text.substr(0, end))) {
    bool const isText = piece.kind == TemplatePiece::text;
    result += isText ? accented(piece.bytes, characters) : std::string(piece.bytes);
  }
  return result + padding((characters + 2) / 3) + std::string(text.substr(end));
}

namespace {

struct PseudoCommand {
  std::string source;
  std::string output;

  std::vector<std::string> keys(std::string& rule) const;
  int run() const;
};

// A dictionary's rule stays, since its plural keys go by it.
std::vector<std::string> PseudoCommand::keys(std::string& rule) const {
  bool const isPo = source.ends_with(".pot") || source.ends_with(".po");
  Dictionary const d = isPo ? Dictionary() : readDictionary(source);
  for (Entry const& entry : d.entries) {
    if (entry.key == kPluralRuleKey) rule = entry.text;
  }
  return isPo ? expanded(readAskedKeys(source), d) : keysOf(d);
}

int PseudoCommand::run() const {
  std::string rule;
  std::vector<std::string> const all = keys(rule);
  std::string result = rule.empty() ? "" : entryLine(kPluralRuleKey, rule).value_or("");
  for (std::string const& key : all) {
    std::optional<std::string> const line = entryLine(key, pseudoText(key));
    if (!line) throw Failure(say("%s: %s", toLocale(source), say("a text would be too long")));
    result += *line;
  }
  writeFile(output, result);
  return kAllWell;
}

}  // namespace

void addPseudo(CLI::App& app, Action& action) {
  auto const [command, sub] =
      addCommand<PseudoCommand>(app, action, "pseudo", say("Make a dictionary for tests"));
  sub->add_option("FILE|POT", command->source, say("where the keys come from"))->required();
  addOutput(*sub, command->output, "FILE", say("the dictionary to write; - for the output"));
}

}  // namespace dict
