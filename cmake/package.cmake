# What `cmake --install` lays out: headers, library, CMake package and pkg-config module. All are
# relocatable, unless whoever configures gives absolute folders.
include(CMakePackageConfigHelpers)

set(atr_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ZLTatr)
# CMake 3.25 puts the prefix before the absolute folder of a file set when it exports it.
set(atr_header_dir ${CMAKE_INSTALL_INCLUDEDIR})
if(IS_ABSOLUTE "${atr_header_dir}")
  cmake_path(RELATIVE_PATH atr_header_dir BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX})
endif()

install(TARGETS ZLTatr EXPORT ZLTatrTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Runtime
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Runtime NAMELINK_COMPONENT Development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Development
  FILE_SET HEADERS DESTINATION ${atr_header_dir} COMPONENT Development)
install(EXPORT ZLTatrTargets NAMESPACE ZLTatr:: DESTINATION ${atr_package_dir}
  COMPONENT Development)

configure_package_config_file(cmake/ZLTatrConfig.cmake.in ${PROJECT_BINARY_DIR}/ZLTatrConfig.cmake
  INSTALL_DESTINATION ${atr_package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ZLTatrConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ZLTatrConfig.cmake ${PROJECT_BINARY_DIR}/ZLTatrConfigVersion.cmake
  cmake/ZLTatrHelpers.cmake cmake/ZLTatrExtract.cmake cmake/ZLTatrDictionaries.cmake
  DESTINATION ${atr_package_dir} COMPONENT Development)

# --- pkg-config -------------------------------------------------------------------------------

# The prefix is found from where the module stands, which moves with the package. With an absolute
# library folder the module's distance from the prefix says nothing.
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  set(atr_pc_prefix ${CMAKE_INSTALL_PREFIX})
  set(atr_pc_libdir ${CMAKE_INSTALL_LIBDIR})
else()
  cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX
    BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig OUTPUT_VARIABLE atr_pc_prefix)
  string(PREPEND atr_pc_prefix "\${pcfiledir}/")
  set(atr_pc_libdir "\${prefix}/${CMAKE_INSTALL_LIBDIR}")
endif()
if(IS_ABSOLUTE "${CMAKE_INSTALL_INCLUDEDIR}")
  set(atr_pc_includedir ${CMAKE_INSTALL_INCLUDEDIR})
else()
  set(atr_pc_includedir "\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}")
endif()
# Whoever links the static library may do so by another compiler's driver, as the one for C, which
# does not add what the C++ library consists of.
if(NOT ATR_SHARED)
  set(atr_pc_cflags " -DATR_STATIC")
  set(atr_runtime ${CMAKE_CXX_IMPLICIT_LINK_LIBRARIES})
  list(FILTER atr_runtime INCLUDE REGEX "^(stdc\\+\\+|c\\+\\+|c\\+\\+abi|m)$")
  list(REMOVE_DUPLICATES atr_runtime)
  list(TRANSFORM atr_runtime PREPEND " -l")
  list(JOIN atr_runtime "" atr_pc_libs)
  if(NOT WIN32)
    string(APPEND atr_pc_libs " -Wl,-z,nodelete")
  endif()
endif()
configure_file(cmake/ZLTatr.pc.in ${PROJECT_BINARY_DIR}/ZLTatr.pc.in @ONLY)
file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/pkgconfig/$<CONFIG>/ZLTatr.pc
  INPUT ${PROJECT_BINARY_DIR}/ZLTatr.pc.in TARGET ZLTatr)
install(FILES ${PROJECT_BINARY_DIR}/pkgconfig/$<CONFIG>/ZLTatr.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT Development)
