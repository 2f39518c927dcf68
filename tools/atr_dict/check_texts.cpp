// The bytes of an entry: its escapes, and what a text should have in common with its key.
#include <algorithm>
#include <cctype>

#include "atr/translation/escapes.h"
#include "checks.h"
#include "messages.h"
#include "plural.h"
#include "template_pieces.h"

namespace dict {

namespace {

// The digits of a numeric escape that count; beyond them the low eight bits are taken.
bool hasTooManyDigits(std::string_view escape) {
  if (escape[1] == 'x') return escape.size() > 4;
  return escape.size() == 4 && escape[1] > '3';
}

void checkEscape(Findings& findings, std::string_view escape, char byte) {
  bool const isNumber = escape[1] == 'x' || (escape[1] >= '0' && escape[1] <= '7');
  if (isNumber && hasTooManyDigits(escape)) {
    auto const value = static_cast<unsigned int>(static_cast<unsigned char>(byte));
    findings.add(Rule::longEscape, escape.data(),
                 say("of %s only the byte %02X counts", toLocale(escape), value),
                 say("before a digit or a letter from a to f write three octal digits"));
  }
  if (byte == '\0') {
    findings.add(Rule::nul, escape.data(), say("a zero byte ends the text here"));
  }
}

// Goes through the escapes of a key or a value as the decoder does.
void checkEscapes(Findings& findings, std::string_view raw) {
  if (raw.find('\\') == raw.npos) return;
  std::string const text(raw);
  for (std::size_t at = 0; (at = text.find('\\', at)) != text.npos;) {
    atr::Escape const escape = atr::decodeEscape(text.c_str() + at + 1);
    if (escape.end != nullptr) {
      auto const end = static_cast<std::size_t>(escape.end - text.c_str());
      checkEscape(findings, raw.substr(at, end - at), escape.byte);
      at = end;
      continue;
    }
    if (text[at + 1] != '@') {
      findings.add(Rule::unknownEscape, raw.data() + at,
                   say("\"%s\" is no escape and stays as it is", toLocale(raw.substr(at, 2))),
                   say("write \\\\ for a backslash"));
    }
    at += std::min<std::size_t>(2, text.size() - at);
  }
}

std::string_view blanksBefore(std::string_view text) {
  return text.substr(0, std::min(text.find_first_not_of(" \t"), text.size()));
}

std::string_view blanksBehind(std::string_view text) {
  std::size_t const last = text.find_last_not_of(" \t");
  return last == text.npos ? "" : text.substr(last + 1);
}

void checkBlanks(Findings& findings, Entry const& entry, std::string_view key) {
  bool const isSameBefore = blanksBefore(key) == blanksBefore(entry.text);
  if (isSameBefore && blanksBehind(key) == blanksBehind(entry.text)) return;
  std::size_t const at = isSameBefore ? entry.text.size() : 0;
  findings.add(Rule::blanksDiffer, textPlace(entry, at),
               isSameBefore ? say("the blanks at the end differ from those of the key")
                            : say("the blanks at the start differ from those of the key"));
}

struct Punctuation {
  std::string_view ending;
  char kind;
};
constexpr Punctuation kPunctuation[] = {
    {"...", '~'}, {"…", '~'},      {"⋯", '~'}, {".", '.'},  {"。", '.'}, {"．", '.'},
    {"।", '.'},   {"።", '.'},      {"։", '.'}, {"۔", '.'},  {"?", '?'},  {"？", '?'},
    {"؟", '?'},   {"\u037E", '?'}, {"!", '!'}, {"！", '!'}, {":", ':'},  {"：", ':'},
};

// Of the last character, blanks and line breaks aside; 0 for none.
char endPunctuation(std::string_view text) {
  text = text.substr(0, text.find_last_not_of(" \t\n") + 1);
  for (auto const& [ending, kind] : kPunctuation) {
    if (text.ends_with(ending)) return kind;
  }
  return '\0';
}

void checkPunctuation(Findings& findings, Entry const& entry, std::string_view key) {
  if (entry.text.empty() || endPunctuation(key) == endPunctuation(entry.text)) return;
  std::size_t last = entry.text.find_last_not_of(" \t\n");
  if (last == entry.text.npos) return;
  while (last > 0 && (static_cast<unsigned char>(entry.text[last]) & 0xC0) == 0x80) --last;
  findings.add(Rule::punctuationDiffers, textPlace(entry, last),
               say("the text ends in other punctuation than the key"));
}

void checkLineBreaks(Findings& findings, Entry const& entry, std::string_view key) {
  auto const inKey = static_cast<int>(std::count(key.begin(), key.end(), '\n'));
  auto const inText = static_cast<int>(std::count(entry.text.begin(), entry.text.end(), '\n'));
  bool const hasSameEnds = key.starts_with('\n') == entry.text.starts_with('\n') &&
                           key.ends_with('\n') == entry.text.ends_with('\n');
  if (inKey == inText && !hasSameEnds) {
    findings.add(Rule::lineBreaksDiffer, entry.rawValue.data(),
                 say("line breaks at the start and the end differ from those of the key"));
  }
  if (inKey == inText) return;
  findings.add(Rule::lineBreaksDiffer, entry.rawValue.data(),
               say("the text has %d line breaks, the key %d", inText, inKey));
}

bool isLetter(char c) {
  return std::isalpha(static_cast<unsigned char>(c)) != 0 || static_cast<signed char>(c) < 0;
}

// Units and signs are the same in many languages.
bool hasWord(std::string_view text) {
  constexpr int kWord = 3;  // letters
  int letters = 0;
  for (TemplatePiece const& piece : cutTemplate(text)) {
    if (piece.kind != TemplatePiece::text) continue;
    for (char const c : piece.bytes) {
      letters = isLetter(c) ? letters + 1 : 0;
      if (letters == kWord) return true;
    }
    letters = 0;
  }
  return false;
}

void checkTranslation(Findings& findings, Entry const& entry, std::string_view key) {
  if (entry.text == key && hasWord(key)) {
    findings.add(Rule::untranslated, entry.rawValue.data(), say("the text is the key"));
  }
  std::size_t const tail = entry.text.find("\\@");
  if (tail != entry.text.npos) {
    findings.add(Rule::tailInValue, textPlace(entry, tail),
                 say("a tail belongs to keys; here it shows"), say("take it out of the text"));
  }
}

}  // namespace

void checkTexts(Findings& findings) {
  for (Entry const& entry : findings.dictionary().entries) {
    if (entry.fate == Fate::noKey) continue;
    checkEscapes(findings, entry.rawKey);
    checkEscapes(findings, entry.rawValue);
    if (entry.fate != Fate::stored || entry.key == kPluralRuleKey) continue;
    std::string_view const key = withoutTail(entry.key);
    checkTranslation(findings, entry, key);
    if (entry.text.empty()) continue;  // a text that is left out on purpose
    checkBlanks(findings, entry, key);
    checkPunctuation(findings, entry, key);
    checkLineBreaks(findings, entry, key);
  }
}

}  // namespace dict
