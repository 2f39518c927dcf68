// ATR_API marks what the shared library offers. A static build, and tests that take the library's
// objects as they are, define ATR_STATIC.
#ifndef ATR_FRAME_EXPORT_H
#define ATR_FRAME_EXPORT_H

/// Marks a function, a member or a datum that clients link to.
#if defined(ATR_STATIC)
#define ATR_API
#elif defined(_WIN32)
#if defined(ATR_BUILD)
#define ATR_API __declspec(dllexport)
#else
#define ATR_API __declspec(dllimport)
#endif
#else
#define ATR_API __attribute__((visibility("default")))
#endif

/// Marks an inline member that the library offers as a symbol too, whether or not it calls it.
#if defined(ATR_BUILD) && !defined(ATR_STATIC)
#define ATR_INLINE_API ATR_API __attribute__((used))
#else
#define ATR_INLINE_API
#endif

/// The inline namespace of what the headers define themselves, one for each version that changes
/// any of it. Modules of one process that were built with two versions then each keep their own.
#define ATR_HEADER_VERSION v1_0

#endif  // ATR_FRAME_EXPORT_H
