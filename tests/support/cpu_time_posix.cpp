// The processor time of the process on POSIX systems.
#include <ctime>

#include "support/support.h"

double test::cpuSeconds() noexcept {
  return static_cast<double>(std::clock()) / static_cast<double>(CLOCKS_PER_SEC);
}
