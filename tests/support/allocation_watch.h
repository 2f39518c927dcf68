// The allocators of a test program: the global operator new counts and fills what it hands out, and
// the C allocator, which both families of the library stand on, can be made to fail.
#ifndef ATR_TESTS_SUPPORT_ALLOCATION_WATCH_H
#define ATR_TESTS_SUPPORT_ALLOCATION_WATCH_H

#include <cstddef>
#include <new>

namespace test {

struct Allocations {
  int taken;              // blocks
  int freed;              // blocks, null not counted
  std::size_t lastBytes;  // of the last block taken
};

/// What operator new and delete did since the program began.
Allocations allocations() noexcept;

/// Fails one allocation of malloc, calloc or operator new, the one that comes after `others`.
void failAllocation(int others) noexcept;

/// Fails no more. @return true if the failure has struck.
bool hasFailed() noexcept;

/// Calls work(k) for k from 0 until nothing is left to fail. `work` makes its objects, calls
/// failAllocation(k), and then does what is tested.
/// @return how many allocations there were to fail, or -1 if blocks were lost or freed twice.
template <class Work>
int failEach(Work work) {
  for (int k = 0;; ++k) {
    int const before = allocations().taken - allocations().freed;
    try {
      work(k);
    } catch (std::bad_alloc const&) {
    }
    bool const isDone = !hasFailed();
    if (allocations().taken - allocations().freed != before) return -1;
    if (isDone) return k;
  }
}

}  // namespace test

#endif  // ATR_TESTS_SUPPORT_ALLOCATION_WATCH_H
