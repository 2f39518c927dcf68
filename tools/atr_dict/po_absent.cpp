// The tool without libgettextpo.
#include "commands.h"
#include "failure.h"
#include "messages.h"
#include "po_file.h"

namespace dict {

std::vector<AskedKey> readPoKeys(std::string const& path) {
  throw Failure(say("%s: %s", toLocale(path), say("this atr-dict was built without PO files")));
}

void addPoCommands(CLI::App&, Action&) {}

}  // namespace dict
