// `atr-dict stats`: how far translations have come.
#include <charconv>
#include <map>
#include <set>
#include <unordered_set>

#include "asked_keys.h"
#include "check_options.h"
#include "commands.h"
#include "failure.h"
#include "files.h"
#include "messages.h"
#include "plural.h"
#include "system.h"

namespace dict {

namespace {

struct Numbers {
  int translated = 0;
  int missing = 0;
  int unused = 0;
  int suspicious = 0;

  double percent() const {
    int const all = translated + missing;
    return all > 0 ? 100.0 * translated / all : 100.0;
  }
};

// Entries with a finding. What a file lacks as a whole is counted elsewhere.
int countSuspicious(Dictionary const& d) {
  Findings findings(d, {});
  checkAll(findings);
  std::set<std::size_t> lines;
  for (Finding const& finding : findings.sorted()) {
    if (finding.line < d.lines.size()) lines.insert(finding.line);
  }
  return static_cast<int>(lines.size());
}

// Without keys that are asked for, an empty text is what is missing.
Numbers countOf(Dictionary const& d, std::vector<AskedKey> const* asked) {
  std::unordered_set<std::string> translated;
  std::unordered_set<std::string> empty;
  for (Entry const& entry : d.entries) {
    bool const isLive = entry.fate == Fate::stored && !entry.isShadowed;
    if (!isLive || entry.key == kPluralRuleKey) continue;
    (entry.text.empty() ? empty : translated).emplace(entry.key);
  }
  Numbers numbers;
  numbers.suspicious = countSuspicious(d);
  numbers.translated = static_cast<int>(translated.size());
  numbers.missing = static_cast<int>(empty.size());
  if (asked == nullptr) return numbers;
  auto const keys = expanded(*asked, d);
  std::unordered_set<std::string> const wanted(keys.begin(), keys.end());
  auto const isThere = [&](std::string const& key) { return translated.contains(key); };
  int const found = static_cast<int>(std::count_if(wanted.begin(), wanted.end(), isThere));
  numbers.unused = numbers.translated - found;
  numbers.translated = found;
  numbers.missing = static_cast<int>(wanted.size()) - found;
  return numbers;
}

struct StatsCommand {
  std::vector<std::string> files;
  std::string keys;
  double required = 0;

  int run() const;
  Numbers show(std::string const& file, std::vector<AskedKey> const* asked) const;
};

std::string bar(double percent) {
  constexpr int kWidth = 20;
  auto const filled = static_cast<std::size_t>(percent * kWidth / 100);
  return " [" + std::string(filled, '#') + std::string(kWidth - filled, '.') + "]";
}

Numbers StatsCommand::show(std::string const& file, std::vector<AskedKey> const* asked) const {
  Numbers const numbers = countOf(readDictionary(file), asked);
  print(say("%s: %.1f%% translated (%d), missing %d, unused %d, suspicious %d", toLocale(file),
            numbers.percent(), numbers.translated, numbers.missing, numbers.unused,
            numbers.suspicious) +
        (system::isTerminal(stdout) ? bar(numbers.percent()) : "") + "\n");
  return numbers;
}

int StatsCommand::run() const {
  std::vector<AskedKey> asked;
  if (!keys.empty()) asked = readAskedKeys(keys);
  int status = kAllWell;
  for (std::string const& file : files) {
    Numbers numbers;
    if (!readsOrTells([&] { numbers = show(file, keys.empty() ? nullptr : &asked); })) {
      status = kCouldNotRun;
    } else if (numbers.percent() < required) {
      print(say("%s: less than the %.1f%% that are required", toLocale(file), required) + "\n");
      status = std::max<int>(status, kFound);
    }
  }
  return status;
}

}  // namespace

// What is wrong with a text as a percentage, or nothing.
static std::string notPercentage(std::string const& text) {
  double value = -1;
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  bool const isGood =
      error == std::errc() && end == text.data() + text.size() && value >= 0 && value <= 100;
  return isGood ? "" : say("\"%s\" is no percentage", text);
}

void addStats(CLI::App& app, Action& action) {
  auto const [command, sub] =
      addCommand<StatsCommand>(app, action, "stats", say("Count what is translated"));
  sub->add_option("FILE", command->files, say("dictionaries"))->required();
  sub->add_option("--keys", command->keys, say("the keys that the program asks for"))
      ->type_name("POT|LIST");
  sub->add_option("--require", command->required, say("the percentage below which the status is 1"))
      ->type_name("PERCENT")
      ->check(&notPercentage);
}

}  // namespace dict
