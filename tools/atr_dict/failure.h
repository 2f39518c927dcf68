// What keeps a command from doing its work. Findings in a dictionary are none.
#ifndef ATR_TOOLS_ATR_DICT_FAILURE_H
#define ATR_TOOLS_ATR_DICT_FAILURE_H

#include <cstdio>
#include <stdexcept>
#include <string>

namespace dict {

enum ExitStatus { kAllWell = 0, kFound = 1, kCouldNotRun = 2 };

/// A command ends with kCouldNotRun. The text is in the encoding of the locale and begins with the
/// name of the file that it is about.
struct Failure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

inline void tellFailure(char const* reason) { std::fprintf(stderr, "atr-dict: %s\n", reason); }

/// Does the work for one of several files. A failure is told, and the others have their turn.
/// @return false for a failure.
template <class Work>
bool readsOrTells(Work const& work) {
  try {
    work();
    return true;
  } catch (Failure const& failure) {
    tellFailure(failure.what());
    return false;
  }
}

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_FAILURE_H
