// The processor time of the process on Windows, whose clock() tells the time of day.
#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>

#include "support/support.h"

static double secondsOf(FILETIME const& time) noexcept {
  constexpr double kTicksPerSecond = 1e7;
  auto const high = static_cast<unsigned long long>(time.dwHighDateTime) << 32;
  return static_cast<double>(high | time.dwLowDateTime) / kTicksPerSecond;
}

double test::cpuSeconds() noexcept {
  FILETIME created, ended, kernel, user;
  GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
  return secondsOf(kernel) + secondsOf(user);
}
