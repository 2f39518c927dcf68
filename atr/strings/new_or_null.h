// An object of the heap, or null where a missing one is an answer.
#ifndef ATR_STRINGS_NEW_OR_NULL_H
#define ATR_STRINGS_NEW_OR_NULL_H

#include <new>

namespace atr {

/// Makes a T, or answers null if there is no memory. Takes it from the plain operator new and
/// catches: a client that replaces that one, and operator delete, then sees both ends of every
/// block. The nothrow form is a symbol of its own, which such a client need not have replaced.
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
