// `atr-dict fmt`: the canonical form.

#include "check_options.h"
#include "checks.h"
#include "commands.h"
#include "entry_text.h"
#include "failure.h"
#include "files.h"
#include "format_dictionary.h"
#include "messages.h"
#include "progress.h"

namespace dict {

namespace {

// What is cut, left out or live against its look has to be mended by somebody who knows.
bool losesSomething(Dictionary const& d) {
  Findings findings(d, rulesNamed({"look-alike", "mixed-line-ends"}));
  checkLines(findings);
  return !findings.sorted().empty();
}

// In front of a newline they would be read as a part of it.
std::string withoutReturns(std::string_view line) {
  return std::string(line.substr(0, line.find_last_not_of('\r') + 1));
}

}  // namespace

std::optional<std::string> formatted(Dictionary const& d) {
  if (losesSomething(d)) return std::nullopt;
  std::string result;
  result.reserve(d.bytes.size());
  for (Line const& line : d.lines) {
    std::optional<std::string> entry;
    if (line.entry >= 0) {
      Entry const& e = d.entries[static_cast<std::size_t>(line.entry)];
      entry = entryLine(e.key, e.text);
    }
    // The pieces of a long comment stay together.
    bool const isPiece = !line.hasNewline && &line != &d.lines.back();
    if (entry) {
      result += *entry;
    } else {
      result += isPiece ? std::string(line.text) : withoutReturns(line.text) + '\n';
    }
  }
  return result;
}

namespace {

struct FormatCommand {
  std::vector<std::string> files;
  bool isCheck = false;

  // True if the file is, or now is, in its form.
  bool formatFile(std::string const& file) const;
  int run() const;
};

bool FormatCommand::formatFile(std::string const& file) const {
  Dictionary const d = readDictionary(file);
  std::optional<std::string> const result = formatted(d);
  if (!result) {
    print(say("%s: left as it is, since texts are lost; see atr-dict check", toLocale(file)) +
          "\n");
    return false;
  }
  if (*result == readFile(file)) return true;
  if (isCheck) {
    print(say("%s: not in its form; run atr-dict fmt", toLocale(file)) + "\n");
    return false;
  }
  writeFile(file, *result);
  return true;
}

int FormatCommand::run() const {
  int status = kAllWell;
  Progress progress(files.size());
  for (std::string const& file : files) {
    progress.next(file);
    bool isWell = true;
    bool const isRead = readsOrTells([&] { isWell = formatFile(file); });
    status = std::max<int>(status, !isRead ? kCouldNotRun : isWell ? kAllWell : kFound);
  }
  return status;
}

}  // namespace

void addFormat(CLI::App& app, Action& action) {
  auto const [command, sub] =
      addCommand<FormatCommand>(app, action, "fmt", say("Give dictionaries their canonical form"));
  sub->add_option("FILE", command->files, say("dictionaries, rewritten in place"))->required();
  sub->add_flag("--check", command->isCheck, say("change nothing, and tell which are not in it"));
}

}  // namespace dict
