// What the tests of all rooms share: locales, the environment, fresh processes, small worlds.
#ifndef ATR_TESTS_SUPPORT_SUPPORT_H
#define ATR_TESTS_SUPPORT_SUPPORT_H

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace test {

using namespace std::string_view_literals;

/// Sets LC_ALL for a scope; a locale that the machine lacks fails the test.
class Locale {
 public:
  explicit Locale(char const* name) : before_(std::setlocale(LC_ALL, nullptr)) {
    EXPECT_NE(std::setlocale(LC_ALL, name), nullptr) << name;
  }
  ~Locale() { std::setlocale(LC_ALL, before_.c_str()); }
  Locale(Locale const&) = delete;
  Locale& operator=(Locale const&) = delete;

 private:
  std::string before_;
};

/// The locales that the build made, or the platform's own names for them.
inline std::vector<char const*> allLocales() { return {ATR_TEST_LOCALES}; }

/// Sets a variable of the process environment, or removes it with a null value.
void setVariable(char const* name, char const* value);

/// A file in a folder of the running test, removed at the end of the scope.
class TempFile {
 public:
  TempFile(std::string const& name, std::string_view bytes);
  ~TempFile();
  TempFile(TempFile const&) = delete;
  TempFile& operator=(TempFile const&) = delete;
  std::string const& path() const { return path_; }

 private:
  std::string path_;
};
std::string tempFolder();

/// Writes the failures of the running test to the standard error stream, for a process that cannot
/// report them otherwise. @return how many there are.
int reportFailures();

/// Calls visit(begin, end) for every text of up to `longest` of the given bytes, in a block of
/// exactly its size and a NUL.
template <class Visit>
void forEachText(std::string_view bytes, std::size_t longest, Visit visit) {
  std::vector<std::size_t> digits;
  for (;;) {
    auto const text = std::make_unique<char[]>(digits.size() + 1);
    for (std::size_t i = 0; i < digits.size(); ++i) text[i] = bytes[digits[i]];
    visit(text.get(), static_cast<char const*>(text.get()) + digits.size());
    std::size_t i = 0;
    while (i < digits.size() && ++digits[i] == bytes.size()) digits[i++] = 0;
    if (i < digits.size()) continue;
    if (digits.size() == longest) return;
    digits.assign(digits.size() + 1, 0);
  }
}

}  // namespace test

/// Runs the statements in a process of its own, where nothing has been worked out yet, and matches
/// what it writes to the standard error stream.
#define EXPECT_FRESH(errors, ...)            \
  EXPECT_EXIT(                               \
      {                                      \
        __VA_ARGS__;                         \
        std::exit(::test::reportFailures()); \
      },                                     \
      ::testing::ExitedWithCode(0), errors)

#endif  // ATR_TESTS_SUPPORT_SUPPORT_H
