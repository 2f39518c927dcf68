// Included on the command line of the hardened builds, before everything else. The build of a whole
// distribution or of a parent project, or the compiler itself, may have chosen a level already, in
// more ways than CMake can ask for.
#ifndef ATR_FRAME_FORTIFY_H
#define ATR_FRAME_FORTIFY_H

#if !defined(_FORTIFY_SOURCE) && defined(__OPTIMIZE__)
#define _FORTIFY_SOURCE 2  // NOLINT(bugprone-reserved-identifier): its own name
#endif

#endif  // ATR_FRAME_FORTIFY_H
