// `atr-dict record` where no shared object can be put in front of the library.
#include "commands.h"
#include "failure.h"
#include "messages.h"

namespace dict {

namespace {

struct RecordCommand {
  std::vector<std::string> program;

  int run() const {
    throw Failure(say("record needs Linux: it puts an object before the library"));
  }
};

}  // namespace

void addRecord(CLI::App& app, Action& action) {
  auto const [command, sub] = addCommand<RecordCommand>(
      app, action, "record", say("List the keys of a run; on Linux alone"));
  addWords(*sub, "PROGRAM", say("a program and its arguments"), command->program);
}

}  // namespace dict
