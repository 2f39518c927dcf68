// The words that only compilers understand. To teach another one, give each of these a meaning
// there; a word that it does not have may stay empty, but for ATR_TARGET and ATR_PROCESSOR_HAS,
// which go together.
#ifndef ATR_FRAME_COMPILER_H
#define ATR_FRAME_COMPILER_H

/// A function that is copied into each of its callers, because it is part of a kernel or because a
/// call would cost a good part of its work.
#define ATR_ALWAYS_INLINE [[gnu::always_inline]] inline

/// A rare way, kept apart so that its callers save no registers for it.
#define ATR_NOINLINE [[gnu::noinline]]

/// A function that may use instructions which not every processor has: "avx2", "ssse3,popcnt".
#define ATR_TARGET(instructions) [[gnu::target(instructions)]]

/// True if the processor at hand has the instructions of this name.
#define ATR_PROCESSOR_HAS(instructions) (__builtin_cpu_supports(instructions) != 0)

namespace atr {

/// The same pointer, but the compiler does not know where it comes from. Two loads of one byte by
/// two such pointers are two loads, which Clang turns into vectors; the reuse of one load it does
/// not.
template <class T>
inline T* hideOrigin(T* p) noexcept {
  asm("" : "+r"(p));
  return p;
}

}  // namespace atr

#endif  // ATR_FRAME_COMPILER_H
