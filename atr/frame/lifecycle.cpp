// The order of everything that happens at a real start and a real stop. The memory service goes
// last, after everything that gives memory back.
#include "atr/frame/lifecycle.h"

#include "atr/frame/memory.h"
#include "atr/natural/natural_order_default.h"
#include "atr/strings/string_module.h"
#include "atr/translation/translation.h"

namespace {

int atr_startCount = 0;  // starts not yet matched by a stop

}  // namespace

void atr_initialize(int& count) {
  if (atr_startCount++ != 0) return;
  ++count;
  mem_initialize(count);
  atr_stringInitialize();
  atr_setNaturalOrderDefault();
}

void atr_finalize(int& count) {
  if (--atr_startCount != 0) return;
  --count;
  atr_trReleaseDB();
  atr_stringFinalize();
  mem_finalize(count);
}
