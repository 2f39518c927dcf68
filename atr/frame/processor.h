// What the processor at hand can do beyond what all of its kind can. The one place that asks: each
// kernel for some processors is chosen by these answers, and has a plain form beside it.
//
// ATR_NARROW_VECTORS answers no to everything, so that a build, as that of the sanitizers, runs the
// plain forms.
#ifndef ATR_FRAME_PROCESSOR_H
#define ATR_FRAME_PROCESSOR_H

#include "atr/frame/compiler.h"

#if defined(__x86_64__) && !defined(ATR_NARROW_VECTORS)
#define ATR_ASKS_PROCESSOR 1
#else
#define ATR_ASKS_PROCESSOR 0
#endif

namespace atr {

/// Vectors of 32 bytes. Asked at each call, which costs a load and a test.
inline bool hasWideVectors() noexcept {
#if ATR_ASKS_PROCESSOR
  return ATR_PROCESSOR_HAS("avx2");
#else
  return false;
#endif
}

/// Shuffles of the bytes of a vector by those of another one, and the count of the bits of a word.
inline bool hasByteShuffles() noexcept {
#if ATR_ASKS_PROCESSOR
  return ATR_PROCESSOR_HAS("ssse3") && ATR_PROCESSOR_HAS("popcnt");
#else
  return false;
#endif
}

/// WideVectors<kernel>::call(arguments...) is kernel(arguments...), which is compiled twice: for
/// every processor and for those with wide vectors. The kernel is ATR_ALWAYS_INLINE, to become part
/// of both.
template <auto kKernel>
struct WideVectors;

template <class Result, class... Args, Result (*kKernel)(Args...)>
struct WideVectors<kKernel> {
#if ATR_ASKS_PROCESSOR
  ATR_NOINLINE static Result call(Args... args) {
    return hasWideVectors() ? callWide(args...) : kKernel(args...);
  }

 private:
  ATR_NOINLINE ATR_TARGET("avx2") static Result callWide(Args... args) { return kKernel(args...); }
#else
  static Result call(Args... args) { return kKernel(args...); }
#endif
};

}  // namespace atr

#endif  // ATR_FRAME_PROCESSOR_H
