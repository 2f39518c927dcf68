// A pool for many small blocks of a few fixed sizes. One thread at a time uses a pool.
#ifndef ATR_STRINGS_ALLOCATOR_H
#define ATR_STRINGS_ALLOCATOR_H

#include <cstddef>

#include "atr/frame/export.h"

/// Hands out blocks by class: a block of class c has c + 1 units. Memory comes in slabs from
/// operator new[], which live as long as the pool; a released block serves its own class in its own
/// slab again, last in, first out. Blocks are aligned to 4 bytes.
class atr_Allocator {
 public:
  /// Sets the pool up; takes no memory.
  /// @param unitBytes bytes of a unit, rounded up to words of 4; a unit has a word at least.
  /// @param maxClass the highest class, cut to 0 to 15.
  /// @param slabBytes bytes of a slab, its fixed header included: 0 means 4096. It is raised to
  ///   the bytes of a hundred units, list heads and header included, and cut to 64 KiB.
  ATR_API atr_Allocator(int unitBytes, int maxClass, int slabBytes);

  /// Frees all slabs; blocks still out become invalid.
  ATR_API ~atr_Allocator();

  atr_Allocator(atr_Allocator const&) = delete;
  atr_Allocator& operator=(atr_Allocator const&) = delete;

  /// A block of class `c`, contents undefined, or null for a class that is negative, above the
  /// highest, or larger than a slab. Throws std::bad_alloc if there is no memory for a slab.
  /// O(slabs).
  ATR_API void* Allocate(int c);

  /// Grows a block where it stands, which only the block last carved from its slab can.
  /// @return true if the block now has class `newClass`; false leaves it as it was.
  ATR_API bool Extend(void* block, int oldClass, int newClass);

  /// Takes back a block of class `c`. A block that is not the pool's goes to operator delete, so
  /// that any block of operator new can be handed in, and null.
  /// @pre a block of the pool is given with the class it has now.
  ATR_API void Release(void* block, int c);

 private:
  struct Slab;

  std::ptrdiff_t blockWords(int c) const noexcept;
  Slab* makeSlab();
  void* carve(Slab& slab, int c) noexcept;

  Slab* slabs;    // newest first
  int unitWords;  // words of 4 bytes, as all sizes in here
  int maxClass;   // 0 to 15
  int slabWords;  // in a slab behind its fixed header
};

#endif  // ATR_STRINGS_ALLOCATOR_H
