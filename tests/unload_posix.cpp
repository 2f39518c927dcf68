// Loads the library, lets it publish the locale, unloads it, and reads the environment, which may
// point into it.
#include <dlfcn.h>

#include <cstdlib>
#include <cstring>

class atr_StringBase;

int main(int, char** argv) {
  for (int i = 0; i < 100; ++i) {
    void* const library = dlopen(argv[1], RTLD_NOW);
    auto const setLocale = reinterpret_cast<bool (*)(atr_StringBase*)>(dlsym(library, argv[2]));
    if (setLocale == nullptr || setLocale(nullptr)) return 1;
    dlclose(library);
  }
  char const* const name = std::getenv("ZLT_LC_ALL");
  return name != nullptr && std::strcmp(name, "C") == 0 ? 0 : 1;
}
