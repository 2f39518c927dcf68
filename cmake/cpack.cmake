# Packages of the installed files: one each for Debian, and archives of everything, which for Windows
# hold the compiler's runtime beside the DLL.
#   cd build/release && cpack -G DEB     or TGZ; ZIP in the build for Windows
set(CPACK_PACKAGE_NAME ZLTatr)
set(CPACK_PACKAGE_VENDOR "ZLTatr developers")
set(CPACK_PACKAGE_CONTACT "ZLTatr developers <zltatr@example.org>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_THREADS 0)

# --- archives: one with all components, to be unpacked anywhere -------------------------------

if(WIN32)
  set(CPACK_GENERATOR ZIP)
else()
  set(CPACK_GENERATOR "DEB;TGZ")
endif()
if(WIN32 AND ATR_SHARED)
  foreach(dll libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${dll}
      OUTPUT_VARIABLE atr_dll OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(IS_ABSOLUTE "${atr_dll}")  # a toolchain with another runtime has none of that name
      install(FILES ${atr_dll} DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Runtime)
    endif()
  endforeach()
endif()

# --- Debian: a package for each component -----------------------------------------------------

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${CPACK_PACKAGE_CONTACT})
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libzltatr${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libzltatr-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "libzltatr${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME zltatr-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION devel)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "The shared library that programs built with ZLTatr run with.")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Headers, CMake package and pkg-config module to build programs with ZLTatr.")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "Programs for those who write and translate the dictionaries of ZLTatr.")

if(NOT WIN32)
  # The loader's cache learns of the library.
  file(WRITE ${PROJECT_BINARY_DIR}/packages/triggers "activate-noawait ldconfig\n")
  set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_BINARY_DIR}/packages/triggers)
  find_program(ATR_GZIP gzip)
  set(atr_packages Runtime:libzltatr${PROJECT_VERSION_MAJOR} Development:libzltatr-dev)
  if(ATR_BUILD_TOOLS)
    list(APPEND atr_packages Tools:zltatr-tools)
  endif()
  foreach(pair IN LISTS atr_packages)
    string(REPLACE ":" ";" pair ${pair})
    list(GET pair 0 component)
    list(GET pair 1 package)
    set(folder ${CMAKE_INSTALL_DATAROOTDIR}/doc/${package})
    set(made ${PROJECT_BINARY_DIR}/packages/${package})
    install(FILES cmake/copyright DESTINATION ${folder} COMPONENT ${component})
    if(ATR_GZIP)
      configure_file(cmake/changelog.in ${made}/changelog @ONLY)
      execute_process(COMMAND ${ATR_GZIP} -9nkf ${made}/changelog)
      install(FILES ${made}/changelog.gz DESTINATION ${folder} COMPONENT ${component})
    endif()
  endforeach()
endif()

get_cmake_property(CPACK_COMPONENTS_ALL COMPONENTS)
list(REMOVE_ITEM CPACK_COMPONENTS_ALL Unspecified)
include(CPack)
