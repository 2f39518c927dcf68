// Loads the library, unloads it, and makes a bad call of the runtime, whose handler is the
// library's.
#include <windows.h>

#include <cstdlib>

int main(int, char** argv) {
  for (int i = 0; i < 100; ++i) {
    HMODULE const library = LoadLibraryA(argv[1]);
    if (library == nullptr || GetProcAddress(library, argv[2]) == nullptr) return 1;
    FreeLibrary(library);
  }
  if (_putenv(nullptr) == 0) return 1;
  return GetModuleHandleA("ZLTatr.dll") != nullptr ? 0 : 1;
}
