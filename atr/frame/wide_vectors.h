// ATR_WIDE_VECTORS before a function has it built twice: for every processor, and for those with
// vectors of 32 bytes. The loader chooses; what the function says does not change.
#ifndef ATR_FRAME_WIDE_VECTORS_H
#define ATR_FRAME_WIDE_VECTORS_H

// The choice is the loader's of glibc, and is made before a sanitizer is up.
#if defined(__x86_64__) && defined(__GLIBC__) && defined(__OPTIMIZE__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define ATR_WIDE_VECTORS __attribute__((target_clones("avx2", "default")))
#else
#define ATR_WIDE_VECTORS
#endif

namespace atr {

/// The same pointer, unknown to the compiler. What is loaded by it is not made from what was loaded
/// before, of which Clang makes no vectors.
template <class T>
inline T* loadAnew(T* p) noexcept {
  asm("" : "+r"(p));
  return p;
}

}  // namespace atr

#endif  // ATR_FRAME_WIDE_VECTORS_H
