# What `cmake --install` lays out: headers, library, CMake package and pkg-config module, all
# relocatable.
include(CMakePackageConfigHelpers)

set(atr_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ZLTatr)

install(TARGETS ZLTatr EXPORT ZLTatrTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT ZLTatrTargets NAMESPACE ZLTatr:: DESTINATION ${atr_package_dir})

configure_package_config_file(cmake/ZLTatrConfig.cmake.in ${PROJECT_BINARY_DIR}/ZLTatrConfig.cmake
  INSTALL_DESTINATION ${atr_package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ZLTatrConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ZLTatrConfig.cmake ${PROJECT_BINARY_DIR}/ZLTatrConfigVersion.cmake
  cmake/ZLTatrHelpers.cmake cmake/ZLTatrExtract.cmake cmake/ZLTatrDictionaries.cmake
  DESTINATION ${atr_package_dir})

# The prefix is found from where the module stands, which moves with the package.
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX
  BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig OUTPUT_VARIABLE atr_pc_prefix)
if(NOT BUILD_SHARED_LIBS)
  set(atr_pc_cflags "-DATR_STATIC")
  set(atr_pc_libs "-lstdc++")
  if(NOT WIN32)
    string(APPEND atr_pc_libs " -Wl,-z,nodelete")
  endif()
endif()
configure_file(cmake/ZLTatr.pc.in ${PROJECT_BINARY_DIR}/ZLTatr.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/ZLTatr.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
