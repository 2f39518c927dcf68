# Warnings and hardening, as targets that the library and its tests link. Warnings are errors where
# CMAKE_COMPILE_WARNING_AS_ERROR says so, which CI does: a newer compiler must not break a release.
add_library(atr_warnings INTERFACE)
target_compile_options(atr_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wformat=2 -Wvla)

# On Windows the stack protector would bring one more DLL; the linker's own protections are on.
add_library(atr_hardening INTERFACE)
if(NOT WIN32)
  target_compile_options(atr_hardening INTERFACE
    $<$<CONFIG:Release,RelWithDebInfo>:-fstack-protector-strong>
    "$<$<CONFIG:Release,RelWithDebInfo>:SHELL:-include ${PROJECT_SOURCE_DIR}/atr/frame/fortify.h>")
  target_link_options(atr_hardening INTERFACE LINKER:-z,relro,-z,now,-z,noexecstack)
endif()
