// `atr-dict check`: what the runtime would do in silence.
#include "asked_keys.h"
#include "check_options.h"
#include "checks.h"
#include "commands.h"
#include "failure.h"
#include "files.h"
#include "messages.h"
#include "progress.h"
#include "report.h"
#include "system.h"

namespace dict {

RuleSet rulesNamed(std::vector<std::string> const& names) {
  RuleSet set;
  for (std::string const& name : names) set.set(static_cast<std::size_t>(findRule(name)->rule));
  return set;
}

void checkAll(Findings& findings) {
  checkLines(findings);
  checkTexts(findings);
  checkConversions(findings);
  checkKeys(findings);
  checkPlurals(findings);
}

namespace {

enum class Color { automatic, always, never };

struct CheckCommand {
  std::vector<std::string> files;
  std::vector<std::string> disabled;
  std::vector<std::string> charsets;
  std::string reference;
  std::string keys;
  Format format = Format::text;
  Color color = Color::automatic;
  bool isStrict = false;

  ReportStyle style() const {
    bool const isColored =
        color == Color::always || (color == Color::automatic && system::isTerminal(stdout));
    return {format, isColored};
  }
  void checkFile(std::string const& file, Counts& counts) const;
  int run() const;
};

void CheckCommand::checkFile(std::string const& file, Counts& counts) const {
  Dictionary const dictionary = readDictionary(file);
  Findings findings(dictionary, rulesNamed(disabled));
  checkAll(findings);
  for (std::string const& charset : charsets) checkCharset(findings, charset);
  if (!reference.empty()) checkAsked(findings, keysOf(readDictionary(reference)));
  if (!keys.empty()) checkAsked(findings, expanded(readAskedKeys(keys), dictionary));
  report(findings, style(), counts);
}

int CheckCommand::run() const {
  Counts counts;
  Progress progress(files.size());
  bool areAllRead = true;
  for (std::string const& file : files) {
    progress.next(file);
    areAllRead &= readsOrTells([&] { checkFile(file, counts); });
  }
  progress.finish();
  if (format == Format::text && counts.errors + counts.warnings > 0) {
    print(say("errors: %d, warnings: %d", counts.errors, counts.warnings) + "\n");
  }
  if (!areAllRead) return kCouldNotRun;
  return counts.errors > 0 || (isStrict && counts.warnings > 0) ? kFound : kAllWell;
}

std::vector<std::string> ruleNames() {
  std::vector<std::string> names;
  for (RuleInfo const& info : allRules()) names.emplace_back(info.name);
  return names;
}

}  // namespace

void addCheck(CLI::App& app, Action& action) {
  auto const [command, sub] =
      addCommand<CheckCommand>(app, action, "check", say("Tell what goes wrong in dictionaries"));
  sub->add_option("FILE", command->files, say("dictionaries"))->required();
  sub->add_option("--disable", command->disabled, say("leave a rule out; may be given often"))
      ->type_name("RULE")
      ->allow_extra_args(false)
      ->check(CLI::IsMember(ruleNames()).description(""));
  sub->add_option("--charset", command->charsets,
                  say("tell what a charset lacks; may be given often"))
      ->type_name("NAME")
      ->allow_extra_args(false);
  sub->add_option("--reference", command->reference, say("a dictionary that has all the keys"))
      ->type_name("FILE");
  sub->add_option("--keys", command->keys, say("the keys that the program asks for"))
      ->type_name("POT|LIST");
  sub->add_flag("--strict", command->isStrict, say("warnings count for the exit status too"));
  addChoice<Format>(*sub, "--format", command->format,
                    {{"text", Format::text}, {"json", Format::json}, {"github", Format::github}},
                    say("how findings are shown"));
  addChoice<Color>(*sub, "--color", command->color,
                   {{"auto", Color::automatic}, {"always", Color::always}, {"never", Color::never}},
                   say("when findings are coloured"));
}

}  // namespace dict
