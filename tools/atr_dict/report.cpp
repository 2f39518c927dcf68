// One finding after another, in one of three forms.
#include "report.h"

#include <algorithm>
#include <cstdio>

#include "files.h"
#include "messages.h"

namespace dict {

namespace {

constexpr char kBold[] = "\x1b[1m";
constexpr char kRed[] = "\x1b[1;31m";
constexpr char kMagenta[] = "\x1b[1;35m";
constexpr char kGreen[] = "\x1b[1;32m";
constexpr char kPlain[] = "\x1b[m";

constexpr std::size_t kShownBefore = 60;  // characters of a long line around the caret
constexpr std::size_t kShownBehind = 40;

bool isContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

std::size_t characters(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return !isContinuation(c); }));
}

struct Place {
  bool isFile;  // no line in particular
  int line;
  std::size_t column;
  std::string_view text;  // of the line
  std::size_t at;
};

// The pieces of a long line count their columns from the line's own start.
Place placeOf(Dictionary const& d, Finding const& finding) {
  if (finding.line == d.lines.size()) return {true, 0, 0, "", 0};
  Line const& line = d.lines[finding.line];
  std::size_t column = 1 + characters(line.text.substr(0, finding.at));
  for (std::size_t i = finding.line; d.lines[i].isContinued; --i) {
    column += characters(d.lines[i - 1].text);
  }
  return {false, line.number, column, line.text, finding.at};
}

class Reporter {
 public:
  Reporter(Dictionary const& d, ReportStyle const& style) : d_(d), style_(style) {}

  void show(Finding const& finding) const {
    Place const place = placeOf(d_, finding);
    switch (style_.format) {
      case Format::text:
        return showText(finding, place);
      case Format::json:
        return showJson(finding, place);
      case Format::github:
        return showGithub(finding, place);
    }
  }

 private:
  std::string colored(char const* color, std::string const& text) const {
    return style_.isColored ? color + text + kPlain : text;
  }
  void showText(Finding const& finding, Place const& place) const;
  void showLine(Place const& place) const;
  void showJson(Finding const& finding, Place const& place) const;
  void showGithub(Finding const& finding, Place const& place) const;

  Dictionary const& d_;
  ReportStyle const& style_;
};

void Reporter::showText(Finding const& finding, Place const& place) const {
  RuleInfo const& rule = infoOf(finding.rule);
  std::string where = toLocale(d_.path) + ":";
  if (!place.isFile) {
    where += std::to_string(place.line) + ":" + std::to_string(place.column) + ":";
  }
  std::string const kind = (rule.isError ? say("error") : say("warning")) + ":";
  print(colored(kBold, where) + " " + colored(rule.isError ? kRed : kMagenta, kind) + " " +
        finding.message + " [" + rule.name + "]\n");
  if (!place.isFile) showLine(place);
  if (!finding.hint.empty()) print("  " + say("hint: %s", finding.hint) + "\n");
}

// A window of the line and a caret below it. A tab takes a column of a blank.
void Reporter::showLine(Place const& place) const {
  std::size_t from = place.at;
  for (std::size_t n = 0; from > 0 && n < kShownBefore; ++n) {
    do --from;
    while (from > 0 && isContinuation(place.text[from]));
  }
  std::size_t to = place.at;
  for (std::size_t n = 0; to < place.text.size() && n < kShownBehind; ++n) {
    do ++to;
    while (to < place.text.size() && isContinuation(place.text[to]));
  }
  std::string line(place.text.substr(from, to - from));
  std::replace(line.begin(), line.end(), '\t', ' ');
  std::replace(line.begin(), line.end(), '\0', '?');
  std::string const before = from > 0 ? "..." : "";
  std::string const behind = to < place.text.size() ? "..." : "";
  std::size_t const indent = before.size() + characters(place.text.substr(from, place.at - from));
  print("  " + before + toLocale(line) + behind + "\n");
  print("  " + std::string(indent, ' ') + colored(kGreen, "^") + "\n");
}

std::string quoted(std::string const& text) {
  std::string result = "\"";
  for (char const c : text) {
    if (c == '"' || c == '\\') result += '\\';
    if (static_cast<unsigned char>(c) < 0x20) {
      char code[8];
      std::snprintf(code, sizeof code, "\\u%04x", static_cast<unsigned int>(c));
      result += code;
    } else {
      result += c;
    }
  }
  return result + "\"";
}

void Reporter::showJson(Finding const& finding, Place const& place) const {
  RuleInfo const& rule = infoOf(finding.rule);
  std::string const where = place.isFile ? ""
                                         : ",\"line\":" + std::to_string(place.line) +
                                               ",\"column\":" + std::to_string(place.column);
  print("{\"file\":" + quoted(d_.path) + where + ",\"severity\":\"" +
        (rule.isError ? "error" : "warning") + "\",\"rule\":\"" + rule.name +
        "\",\"message\":" + quoted(fromLocale(finding.message)) +
        ",\"hint\":" + quoted(fromLocale(finding.hint)) + "}\n");
}

// Percent signs and line ends are the command's own, in properties colons and commas too.
std::string forGithub(std::string const& text, bool isProperty) {
  std::string result;
  for (char const c : text) {
    char code[8];
    bool const isSpecial = c == '%' || c == '\r' || c == '\n';
    if (isSpecial || (isProperty && (c == ':' || c == ','))) {
      std::snprintf(code, sizeof code, "%%%02X", static_cast<unsigned int>(c));
      result += code;
    } else {
      result += c;
    }
  }
  return result;
}

void Reporter::showGithub(Finding const& finding, Place const& place) const {
  RuleInfo const& rule = infoOf(finding.rule);
  std::string const where =
      place.isFile ? ""
                   : ",line=" + std::to_string(place.line) + ",col=" + std::to_string(place.column);
  std::string const hint = finding.hint.empty() ? "" : "\n" + finding.hint;
  print(std::string("::") + (rule.isError ? "error" : "warning") +
        " file=" + forGithub(d_.path, true) + where + ",title=" + rule.name +
        "::" + forGithub(fromLocale(finding.message + hint), false) + "\n");
}

}  // namespace

void report(Findings& findings, ReportStyle const& style, Counts& counts) {
  Reporter const reporter(findings.dictionary(), style);
  for (Finding const& finding : findings.sorted()) {
    ++(infoOf(finding.rule).isError ? counts.errors : counts.warnings);
    reporter.show(finding);
  }
}

}  // namespace dict
