// Start: the pools, then the summary. Stop: the reverse order.
#include "atr/strings/string_module.h"

#include "atr/strings/allocator.h"
#include "atr/strings/body_room.h"
#include "atr/strings/new_or_null.h"
#include "atr/strings/summary.h"

atr_Allocator* atr_repPool = nullptr;
atr_Allocator* atr_bodyPool = nullptr;

namespace {

constexpr int kDefaultSlab = 0;
constexpr int kBodySlabBytes = 16384;

void destroyPool(atr_Allocator*& pool) noexcept {
  delete pool;
  pool = nullptr;
}

}  // namespace

void atr_stringInitialize() {
  atr_repPool = atr::newOrNull<atr_Allocator>(atr::kHeaderBytes, 0, kDefaultSlab);
  atr_bodyPool =
      atr::newOrNull<atr_Allocator>(atr::kUnitBytes, atr::kMaxInlineUnits, kBodySlabBytes);
  atr_summaryInitialize();
}

void atr_stringFinalize() {
  atr_summaryFinalize();
  destroyPool(atr_repPool);
  destroyPool(atr_bodyPool);
}
