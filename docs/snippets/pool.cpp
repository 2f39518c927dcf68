// Blocks of 16, 32, 48 and 64 bytes.
#include <atr/atr.h>

#include <cstdio>
#include <new>

namespace {

struct Box {
  float x, y, width, height;
};

}  // namespace

int main() {
  atr_Allocator pool(16, 3, 0);  // a unit of 16 bytes, classes 0 to 3, slabs of 4096 bytes
  auto* const box = new (pool.Allocate(0)) Box{1, 2, 3, 4};
  std::printf("%g by %g\n", static_cast<double>(box->width), static_cast<double>(box->height));

  auto* const text = static_cast<char*>(pool.Allocate(0));
  bool const hasGrown = pool.Extend(text, 0, 2);  // it was carved last
  std::printf("%s\n", hasGrown ? "48 bytes now" : "no room behind it");

  pool.Release(text, hasGrown ? 2 : 0);  // with the class that the block has now
  pool.Release(box, 0);
  std::printf("%s\n", pool.Allocate(0) == box ? "used again" : "another one");
  std::printf("%s\n", pool.Allocate(4) == nullptr ? "no such class" : "a block");
}  // the pool gives all its slabs back, whatever is still out
