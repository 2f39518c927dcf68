// A kernel, whose loops the compiler makes vectors of, is built twice: for every processor, and for
// those with vectors of 32 bytes. The processor is asked at each call.
#ifndef ATR_FRAME_WIDE_VECTORS_H
#define ATR_FRAME_WIDE_VECTORS_H

// The runs under the address sanitizer have the narrow ones, so that a test run sees both.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ATR_UNDER_SANITIZER
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define ATR_UNDER_SANITIZER
#endif

#if !defined(__x86_64__) || defined(ATR_NARROW_VECTORS) || defined(ATR_UNDER_SANITIZER)
#define ATR_WIDE_VECTORS 0
#else
#define ATR_WIDE_VECTORS 1
#endif

namespace atr {

/// The same pointer, unknown to the compiler. What is loaded by it is not made from what was loaded
/// before, of which Clang makes no vectors.
template <class T>
inline T* loadAnew(T* p) noexcept {
  asm("" : "+r"(p));
  return p;
}

/// WideVectors<kernel>::call(arguments...) is kernel(arguments...) by the widest vectors. A kernel
/// is always in line, to become part of either.
template <auto kKernel>
struct WideVectors;

template <class Result, class... Args, Result (*kKernel)(Args...)>
struct WideVectors<kKernel> {
#if !ATR_WIDE_VECTORS
  static Result call(Args... args) { return kKernel(args...); }
#else
  [[gnu::noinline]] static Result call(Args... args) {
    return __builtin_cpu_supports("avx2") ? callWide(args...) : kKernel(args...);
  }

 private:
  [[gnu::noinline, gnu::target("avx2")]] static Result callWide(Args... args) {
    return kKernel(args...);
  }
#endif
};

}  // namespace atr

#endif  // ATR_FRAME_WIDE_VECTORS_H
