// The global operator new of a test program: it counts, can fail, and fills what it hands out.
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

/// Fails one allocation, the one that comes after `others`; negative fails none.
void failAllocation(int others) noexcept;

/// Calls work(k) for k from 0 until it gets through. `work` makes its objects, calls
/// failAllocation(k), and then does what is tested.
/// @return how many allocations there were to fail, or -1 if blocks were lost or freed twice.
template <class Work>
int failEach(Work work) {
  for (int k = 0;; ++k) {
    int const before = allocations().taken - allocations().freed;
    bool hasFailed = false;
    try {
      work(k);
    } catch (std::bad_alloc const&) {
      hasFailed = true;
    }
    failAllocation(-1);
    if (allocations().taken - allocations().freed != before) return -1;
    if (!hasFailed) return k;
  }
}

}  // namespace test

#endif  // ATR_TESTS_SUPPORT_ALLOCATION_WATCH_H
