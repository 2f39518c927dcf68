// atr-dict: tells what becomes of dictionaries, which the library never does.
#include <cstdio>
#include <exception>

#include "commands.h"
#include "failure.h"
#include "files.h"
#include "messages.h"
#include "system.h"

namespace {

int run(int argc, char** argv) {
  dict::loadOwnMessages();
  CLI::App app(dict::say("The companion of ZLTatr's dictionaries."), "atr-dict");
  dict::speakTheUsersLanguage(app);
  app.set_version_flag("--version", "atr-dict " ATR_VERSION,
                       dict::say("Print the version and exit"));
  app.require_subcommand(1);
  app.footer(dict::say("Exit status: 0 all well, 1 something found, 2 could not run."));
  dict::Action action;
  dict::addCheck(app, action);
  dict::addExplain(app, action);
  dict::addFormat(app, action);
  dict::addStats(app, action);
  dict::addPseudo(app, action);
  dict::addRecord(app, action);
  dict::addPoCommands(app, action);
  dict::addRules(app, action);
  try {
    app.parse(argc, argv);
  } catch (CLI::ParseError const& error) {
    return app.exit(error) == 0 ? dict::kAllWell : dict::kCouldNotRun;
  }
  int const status = action();
  dict::finishOutput();
  return status;
}

int fail(char const* reason) {
  dict::tellFailure(reason);
  return dict::kCouldNotRun;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    dict::system::ignoreClosedPipes();
    dict::system::writeBytes(stdout);
    return run(argc, argv);
  } catch (dict::Failure const& failure) {
    return fail(failure.what());
  } catch (std::bad_alloc const&) {
    return fail("out of memory");
  } catch (std::exception const& error) {
    return fail(error.what());
  }
}
