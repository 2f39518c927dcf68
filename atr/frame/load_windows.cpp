// What the DLL does when it is loaded. A static library has no such moment.
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <cstdint>
#include <cstdlib>

namespace {

// A runtime call that is handed a bad argument fails by its result, and does not end the process.
void ignoreInvalidParameter(wchar_t const*, wchar_t const*, wchar_t const*, unsigned int,
                            std::uintptr_t) {}

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
