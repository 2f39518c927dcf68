// The memory service over the C allocator. It counts its blocks, so that a stop can tell whether
// everything came back.
#include "atr/frame/memory.h"

#include <cstdlib>

namespace {

MemoryStatus status = {0, 0, 0};

void* counted(void* block) noexcept {
  if (block != nullptr) ++status.blocksInUse;
  return block;
}

}  // namespace

void mem_initialize(int& /*count*/) { ++status.starts; }

void mem_finalize(int& /*count*/) { ++status.stops; }

// Some allocators answer null for no bytes, which here means that there is no memory.
void* mem_Malloc(std::size_t size) noexcept { return counted(std::malloc(size > 0 ? size : 1)); }

void* mem_Calloc(std::size_t count, std::size_t size) noexcept {
  return counted(std::calloc(count > 0 ? count : 1, size > 0 ? size : 1));
}

void mem_Free(void* block) noexcept {
  if (block != nullptr) --status.blocksInUse;
  std::free(block);
}

MemoryStatus mem_status() noexcept { return status; }
