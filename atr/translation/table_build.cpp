// Builds the table: select the locale and the file, read it, sort the entries. If any step fails,
// the table becomes "tried and empty", so that the next call does not try again.
#include <cstdio>
#include <memory>

#include "atr/frame/platform.h"
#include "atr/strings/working_string.h"
#include "atr/translation/dictionary_reader.h"
#include "atr/translation/translation.h"
#include "atr/translation/translation_table.h"

namespace {

struct CloseFile {
  void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};

}  // namespace

void atr_trBuildDB() {
  if (atr_trTable.count != 0) return;
  atr_StringBasePrv path;
  if (atr_setlocale(&path)) {
    std::unique_ptr<std::FILE, CloseFile> const file(atr::platform::openText(path.c_str()));
    if (file != nullptr) atr_trReadDictionary(file.get());
  }
  if (atr_trTable.count > 0) {
    atr_trTable.sort();
  } else {
    atr_trTable.count = -1;
  }
}

void atr_tr_enable(bool on) {
  if (on) {
    atr_trBuildDB();
  } else {
    atr_trReleaseDB();
  }
}
