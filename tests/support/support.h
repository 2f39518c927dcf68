// What the tests of all rooms share: locales, the environment, fresh processes,
// allocations that are counted and can be made to fail, pictures.
#ifndef ATR_TESTS_SUPPORT_SUPPORT_H
#define ATR_TESTS_SUPPORT_SUPPORT_H

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <new>
#include <random>
#include <sstream>
#include <tuple>

#include "support/twin_report.h"

namespace test {

using namespace std::string_literals;

/// Sets LC_ALL for a scope. A locale that the machine lacks ends the test.
struct Locale {
  explicit Locale(char const* name) { setLocale(name); }
  ~Locale() { std::setlocale(LC_ALL, before.c_str()); }
  S const before = std::setlocale(LC_ALL, nullptr);
};

/// The locales that the build made, or the platform's own names for them.
constexpr char const* kLocales[] = {ATR_TEST_LOCALES};

/// Sets a variable of the process environment; "-" removes it.
void setVariable(char const* name, S const& value);

/// Sets what selects locale and dictionary.
void setEnvironment(S const& supported, S const& file, S const& locale, S const& path,
                    S const& first);

/// A file in a folder of this process, removed at the end of the scope. One that cannot be written
/// throws with its name.
struct TempFile {
  TempFile(S const& name, std::string_view bytes);
  ~TempFile();
  S const path;
};

/// The folder of the files above; no other process has it, and it goes with this one.
S tempFolder();

struct Allocations {
  int taken, freed;       // blocks, null not counted
  std::size_t lastBytes;  // of the last block taken
  int nothrow;            // taken by a form that a client need not have replaced
};

/// What operator new, which fills what it hands out, and delete did since the program began.
Allocations allocations() noexcept;

/// Fails one allocation of malloc, calloc or operator new, the one that comes after `others`.
void failAllocation(int others) noexcept;

/// Fails no more. @return true if the failure has struck.
bool hasFailed() noexcept;

/// Does the work while one allocation fails, the one that comes after `others`.
bool fails(int others, auto const& work) try {
  failAllocation(others), work();
  return hasFailed();
} catch (std::bad_alloc const&) {
  return hasFailed();
}

/// Calls work(k) for k from 0 until nothing is left for its fails(k, ...) to fail.
/// @return how many allocations there were to fail, or -1 if blocks were lost or freed twice.
int failEach(auto const& work) {
  for (int k = 0;; ++k) {
    Allocations const before = allocations();
    work(k);
    if (allocations().taken - before.taken != allocations().freed - before.freed) return -1;
    if (!hasFailed()) return k;
  }
}

/// The values in a row, a blank between two.
S picture(auto const& first, auto const&... others) {
  std::ostringstream out;
  out << first, ((out << ' ' << others), ...);
  return out.str();
}

/// Seconds that the processor has been busy for this process. Other processes do not count.
double cpuSeconds() noexcept;

/// Ends the process, and writes the failures of the running test to the standard error stream.
[[noreturn]] void exitWithFailures();

}  // namespace test

/// Runs the statements in a process of its own, where nothing has been worked out yet, and matches
/// what it writes to the standard error stream.
#define EXPECT_FRESH(errors, ...) \
  EXPECT_EXIT(__VA_ARGS__; ::test::exitWithFailures(), ::testing::ExitedWithCode(0), errors)

#endif  // ATR_TESTS_SUPPORT_SUPPORT_H
