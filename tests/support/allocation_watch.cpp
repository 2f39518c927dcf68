#include "support/allocation_watch.h"

#include <cstdlib>
#include <cstring>

namespace {

test::Allocations watched = {0, 0, 0};
int failAfter = -1;

}  // namespace

test::Allocations test::allocations() noexcept { return watched; }

void test::failAllocation(int others) noexcept { failAfter = others; }

void* operator new(std::size_t bytes) {
  if (failAfter >= 0 && failAfter-- == 0) throw std::bad_alloc();
  void* const block = std::malloc(bytes > 0 ? bytes : 1);
  if (block == nullptr) throw std::bad_alloc();
  std::memset(block, 0xA5, bytes);
  ++watched.taken;
  watched.lastBytes = bytes;
  return block;
}

void* operator new(std::size_t bytes, std::nothrow_t const&) noexcept {
  try {
    return operator new(bytes);
  } catch (std::bad_alloc const&) {
    return nullptr;
  }
}

void operator delete(void* block) noexcept {
  if (block != nullptr) ++watched.freed;
  std::free(block);
}

void operator delete(void* block, std::size_t /*bytes*/) noexcept { operator delete(block); }

void* operator new[](std::size_t bytes) { return operator new(bytes); }
void operator delete[](void* block) noexcept { operator delete(block); }
void operator delete[](void* block, std::size_t /*bytes*/) noexcept { operator delete(block); }
