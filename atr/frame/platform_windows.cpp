// The platform layer on 64-bit Windows.
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
// windows.h goes first
#include <sys/stat.h>

#include <climits>
#include <cstdlib>
#include <cstring>

#include "atr/frame/platform.h"

namespace atr::platform {

static_assert(kCharacterRoom >= 2 * MB_LEN_MAX);

char const directorySeparator[2] = "\\";
char const foreignSeparator[2] = "/";
char const listSeparator = ';';

char const* const englishLocale = "English_United States.1252";

void publishVariable(char* nameAndValue) noexcept { _putenv(nameAndValue); }

std::FILE* openText(char const* path) noexcept {
  std::FILE* const stream = std::fopen(path, "r");
  struct _stat64 status;
  if (stream == nullptr ||
      (_fstat64(_fileno(stream), &status) == 0 && (status.st_mode & _S_IFMT) == _S_IFREG)) {
    return stream;
  }
  std::fclose(stream);
  return nullptr;
}

// Text mode has turned every CR LF into an LF.
char* readLine(char* line, int size, std::FILE* stream) noexcept {
  return std::fgets(line, size, stream);
}

// No code page is known by name: each has its own ways with bytes that are no character.
Codeset currentCodeset() noexcept { return Codeset::other; }

// The runtime keeps no shift state of its own.
int characterBytes(char const* text, std::size_t bound) noexcept { return std::mblen(text, bound); }

int decodeCharacter(unsigned int& code, char const* text, std::size_t bound) noexcept {
  wchar_t wide = 0;
  int const bytes = std::mbtowc(&wide, text, bound);
  code = wide;
  return bytes;
}

// A code beyond 16 bits keeps its low ones.
int encodeCharacter(char* out, unsigned int code) noexcept {
  return std::wctomb(out, static_cast<wchar_t>(code));
}

}  // namespace atr::platform

namespace {

// A runtime call that is handed a bad argument fails by its result, and does not end the process.
void ignoreInvalidParameter(wchar_t const*, wchar_t const*, wchar_t const*, unsigned int,
                            uintptr_t) {}

}  // namespace

// The handler is the library's, which therefore stays loaded once it is. With a runtime that keeps
// storage per thread, turning thread notifications off is asked for and may be refused.
extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) {
    DisableThreadLibraryCalls(module);
    HMODULE pinned = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       reinterpret_cast<LPCSTR>(&ignoreInvalidParameter), &pinned);
    _set_invalid_parameter_handler(ignoreInvalidParameter);
  }
  return TRUE;
}
