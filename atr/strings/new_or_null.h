// Makes an object on the heap, where null is an acceptable answer.
#ifndef ATR_STRINGS_NEW_OR_NULL_H
#define ATR_STRINGS_NEW_OR_NULL_H

#include <new>

namespace atr {

/// Makes a T; null if there is no memory. Uses the throwing operator new and catches: a client that
/// replaces operator new and operator delete then sees every block come and go. The nothrow form is
/// a separate function, which such a client may not have replaced.
template <class T, class... Args>
T* newOrNull(Args... args) noexcept {
  try {
    return new T(args...);
  } catch (std::bad_alloc const&) {
    return nullptr;
  }
}

}  // namespace atr

#endif  // ATR_STRINGS_NEW_OR_NULL_H
