// ATR_WIDE_VECTORS before a function has it built twice: for every processor, and for those with
// vectors of 32 bytes. The loader chooses; what the function says does not change.
#ifndef ATR_FRAME_WIDE_VECTORS_H
#define ATR_FRAME_WIDE_VECTORS_H

#include <cstddef>

// The choice is the loader's of glibc, and is made before a sanitizer is up.
#if defined(__x86_64__) && defined(__GLIBC__) && defined(__OPTIMIZE__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define ATR_WIDE_VECTORS __attribute__((target_clones("avx2", "default")))
#else
#define ATR_WIDE_VECTORS
#endif

#endif  // ATR_FRAME_WIDE_VECTORS_H
