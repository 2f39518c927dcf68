// How far a long work has come, on a terminal and nowhere else.
#ifndef ATR_TOOLS_ATR_DICT_PROGRESS_H
#define ATR_TOOLS_ATR_DICT_PROGRESS_H

#include <cstddef>
#include <cstdio>
#include <string>

#include "messages.h"
#include "system.h"

namespace dict {

/// A line of the standard error stream that tells which of several files is worked on.
class Progress {
 public:
  explicit Progress(std::size_t files)
      : files_(files), isShown_(files > 1 && system::isTerminal(stderr)) {}
  Progress(Progress const&) = delete;
  Progress& operator=(Progress const&) = delete;
  ~Progress() { finish(); }

  void next(std::string const& file) {
    ++at_;
    if (!isShown_) return;
    std::string const text = say("%u of %u: %s", at_, files_, toLocale(file));
    std::fprintf(stderr, "\r\x1b[K%s", text.c_str());
  }

  /// Clears the line.
  void finish() {
    if (isShown_) std::fputs("\r\x1b[K", stderr);
    isShown_ = false;
  }

 private:
  std::size_t files_;
  std::size_t at_ = 0;
  bool isShown_;
};

}  // namespace dict

#endif  // ATR_TOOLS_ATR_DICT_PROGRESS_H
