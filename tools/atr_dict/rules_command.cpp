// `atr-dict rules`: the names that --disable and comments take.
#include "commands.h"
#include "failure.h"
#include "files.h"
#include "messages.h"
#include "rules.h"

namespace dict {

namespace {

struct RulesCommand {
  int run() const {
    for (RuleInfo const& info : allRules()) {
      std::string const kind = info.isError ? say("error") : say("warning");
      print(say("%-20s %-8s %s", std::string(info.name), kind, say(info.summary)) + "\n");
    }
    return kAllWell;
  }
};

}  // namespace

void addRules(CLI::App& app, Action& action) {
  addCommand<RulesCommand>(app, action, "rules", say("List the rules of check"));
}

}  // namespace dict
