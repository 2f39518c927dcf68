// Lets a test of another processor start itself anew under the emulator that runs it.
#include <unistd.h>

#include <cstdlib>
#include <vector>

extern "C" int __real_execv(char const* path, char* const* arguments);

extern "C" int __wrap_execv(char const* path, char* const* arguments) {
  char* const emulator = std::getenv("ATR_TEST_EMULATOR");
  if (emulator == nullptr) return __real_execv(path, arguments);
  std::vector<char*> words{emulator, const_cast<char*>(path)};
  while (*++arguments != nullptr) words.push_back(*arguments);
  words.push_back(nullptr);
  return __real_execv(emulator, words.data());
}
