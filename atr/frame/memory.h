// The memory service: plain blocks for the translation table and the search list. Strings, messages
// and pools take theirs from the global operator new; the two families never mix.
#ifndef ATR_FRAME_MEMORY_H
#define ATR_FRAME_MEMORY_H

#include <cstddef>

/// Starts the service; called once at each real start. `count` is the caller's and is not read.
void mem_initialize(int& count);

/// Stops the service; called last at each real stop, after every block has come back.
/// Blocks that are still out stay valid and may be freed later.
void mem_finalize(int& count);

/// A block of `size` bytes, contents undefined, or null if there is no memory. `size` may be 0.
void* mem_Malloc(std::size_t size) noexcept;

/// A block of `count` times `size` zero bytes, or null if there is no memory or the product
/// overflows.
void* mem_Calloc(std::size_t count, std::size_t size) noexcept;

/// Gives back a block of mem_Malloc or mem_Calloc; null is nothing.
void mem_Free(void* block) noexcept;

/// What the service has to tell of itself: calls of start and stop, and blocks not yet given back.
struct MemoryStatus {
  int starts;
  int stops;
  std::ptrdiff_t blocksInUse;
};
MemoryStatus mem_status() noexcept;

namespace atr {

/// Gives a block of the service back when the scope ends.
struct MemoryRelease {
  void operator()(void* block) const noexcept { mem_Free(block); }
};

}  // namespace atr

#endif  // ATR_FRAME_MEMORY_H
