// What becomes of a line before anybody looks at its text.
#include <algorithm>

#include "checks.h"
#include "messages.h"

namespace dict {

namespace {

std::string_view trimmed(std::string_view text) {
  std::size_t const first = text.find_first_not_of(" \t");
  return first == text.npos ? "" : text.substr(first, text.find_last_not_of(" \t\r") + 1 - first);
}

// `]`, any blanks and `=`, or the word that begins entries by custom.
bool looksLikeEntry(std::string_view line) {
  line = trimmed(line);
  if (line.empty() || line.front() == '#') return false;
  if (line.starts_with("msg[") || line.starts_with("msg [")) return true;
  std::size_t const bracket = line.find(']');
  if (bracket == line.npos || line.find('[') > bracket) return false;
  std::size_t const behind = line.find_first_not_of(" \t", bracket + 1);
  return behind != line.npos && line[behind] == '=';
}

void checkLook(Findings& findings, Line const& line) {
  if (line.isContinued || !looksLikeEntry(line.text)) return;
  char const* const at = line.text.data() + line.text.find_first_not_of(" \t");
  findings.add(Rule::lookAlike, at, say("this line is no entry, so its key shows in English"),
               say("write msg['KEY'] = r'TEXT', with these quotes and blanks"));
}

void checkClosing(Findings& findings, Line const& line, Entry const& entry) {
  char const* const end = line.text.data() + line.text.size();
  if (entry.closing == "'\n") return;
  std::string const shown = toLocale(entry.text);
  if (!line.hasNewline) {
    findings.add(Rule::cutValue, end,
                 say("the last line has no newline, so its text shows as \"%s\"", shown),
                 say("end the file with a newline"));
  } else {
    std::size_t const quote = entry.rawValue.rfind('\'');
    bool const hasQuote = quote != std::string_view::npos;
    findings.add(Rule::cutValue, hasQuote ? entry.rawValue.data() + quote + 1 : end,
                 say("the quote does not end the line, so the text shows as \"%s\"", shown),
                 say("end the line directly behind the closing quote"));
  }
}

void checkLength(Findings& findings, std::size_t at) {
  auto const& lines = findings.dictionary().lines;
  findings.add(Rule::longLine, lines[at].text.data(),
               say("the line has 8192 bytes or more, so its text is cut in pieces"),
               say("make the text shorter, or split the message"));
}

// A NUL hides what follows it in the line.
void checkNul(Findings& findings, Line const& line) {
  std::size_t const nul = line.text.find('\0');
  if (nul == line.text.npos) return;
  findings.add(Rule::nul, line.text.data() + nul,
               say("a zero byte ends the line here; the rest is not read"));
}

void checkFate(Findings& findings, Line const& line, Entry const& entry) {
  if (entry.fate == Fate::noKey) {
    findings.add(Rule::noKey, line.text.data(), say("the line has no key and is left out"),
                 say("write msg['KEY'] = r'TEXT'"));
  }
  if (entry.fate == Fate::notUtf8 || entry.fate == Fate::noRoom) {
    bool const isRaw = !isUtf8(entry.rawValue);
    findings.add(Rule::invalidUtf8, entry.rawValue.data(),
                 say("the text is no UTF-8, so the entry is left out and its key shows"),
                 isRaw ? say("save the file in UTF-8")
                       : say("an escape makes a byte that begins no character; before a letter "
                             "from a to f write it in octal"));
  }
}

void checkComment(Findings& findings, Line const& line) {
  if (line.isContinued || !trimmed(line.text).starts_with('#')) return;
  findings.add(Rule::liveComment, line.text.data() + line.text.find('#'),
               say("this is an entry all the same: # switches nothing off"),
               say("break its marker, for example to '] =r'"));
}

}  // namespace

void checkLines(Findings& findings) {
  Dictionary const& d = findings.dictionary();
  for (std::size_t i = 0; i < d.lines.size(); ++i) {
    Line const& line = d.lines[i];
    if (line.entry < 0) {
      checkLook(findings, line);
      continue;
    }
    Entry const& entry = d.entries[static_cast<std::size_t>(line.entry)];
    bool const isPiece = i + 1 < d.lines.size() && !line.hasNewline;
    bool const isNulCut = line.text.find('\0') != line.text.npos;
    checkNul(findings, line);
    checkComment(findings, line);
    checkFate(findings, line, entry);
    if (isPiece) checkLength(findings, i);
    if (!isPiece && !isNulCut && entry.fate == Fate::stored) checkClosing(findings, line, entry);
  }
  if (d.hasReturns && d.hasNewlines) {
    auto const first = std::find_if(d.lines.begin(), d.lines.end(), [&](Line const& line) {
      return line.hasReturn != d.lines.front().hasReturn && line.hasNewline;
    });
    findings.add(Rule::mixedLineEnds, first->text.data() + first->text.size(),
                 say("this line ends in another way than the first"),
                 say("end all lines in LF, or all in CR LF"));
  }
}

}  // namespace dict
