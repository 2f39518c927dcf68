// `atr-dict rules`: the names that --disable and comments take.
#include "commands.h"
#include "failure.h"
#include "files.h"
#include "messages.h"
#include "rules.h"

namespace dict {

static int listRules() {
  for (RuleInfo const& info : allRules()) {
    std::string const kind = info.isError ? say("error") : say("warning");
    print(say("%-20s %-8s %s", std::string(info.name), kind, say(info.summary)) + "\n");
  }
  return kAllWell;
}

void addRules(CLI::App& app, Action& action) {
  CLI::App* const sub = app.add_subcommand("rules", "List the rules of check");
  sub->final_callback([&action] { action = listRules; });
}

}  // namespace dict
