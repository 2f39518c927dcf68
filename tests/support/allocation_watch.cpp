// The allocators of a test program, as support.h describes them.
#include <cstdlib>

#include "support/support.h"

static test::Allocations watched = {0, 0, 0, 0};
static int failAfter = -1;
static bool hasStruck = false;

static bool strikes() noexcept { return failAfter >= 0 && failAfter-- == 0 && (hasStruck = true); }

test::Allocations test::allocations() noexcept { return watched; }
void test::failAllocation(int others) noexcept { failAfter = others, hasStruck = false; }
bool test::hasFailed() noexcept { return failAfter = -1, hasStruck; }

// The linker puts these in the place of the C allocator's calls (--wrap).
extern "C" {
void* __real_malloc(std::size_t bytes);
void* __real_calloc(std::size_t count, std::size_t bytes);
void* __wrap_malloc(std::size_t bytes) { return strikes() ? nullptr : __real_malloc(bytes); }
void* __wrap_calloc(std::size_t count, std::size_t bytes) {
  return strikes() ? nullptr : __real_calloc(count, bytes);
}
}

static void* take(std::size_t bytes) noexcept {
  void* const block = std::malloc(bytes > 0 ? bytes : 1);
  if (block == nullptr) return nullptr;
  ++watched.taken;
  watched.lastBytes = bytes;
  return std::memset(block, 0xA5, bytes);
}

void* operator new(std::size_t bytes, std::nothrow_t const&) noexcept {
  ++watched.nothrow;
  return take(bytes);
}

void* operator new(std::size_t bytes) {
  void* const block = take(bytes);
  return block != nullptr ? block : throw std::bad_alloc();
}

void operator delete(void* block) noexcept {
  if (block != nullptr) ++watched.freed;
  std::free(block);
}

void operator delete(void* block, std::size_t /*bytes*/) noexcept { operator delete(block); }
void* operator new[](std::size_t bytes) { return operator new(bytes); }
void operator delete[](void* block) noexcept { operator delete(block); }
void operator delete[](void* block, std::size_t /*bytes*/) noexcept { operator delete(block); }
