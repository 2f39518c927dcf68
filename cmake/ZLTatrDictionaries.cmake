# Dictionaries as tests of a build.

# The program atr-dict: that of the build, or the one beside the package, or on PATH. Sets <out> to a
# word for COMMAND, or to nothing.
function(atr_find_dict_program out)
  if(TARGET atr-dict)
    set(${out} atr-dict PARENT_SCOPE)
    return()
  endif()
  # The package stands at <prefix>/<libdir>/cmake/ZLTatr, its libdir being one folder or two.
  find_program(ATR_DICT_PROGRAM atr-dict
    HINTS ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../../../bin
          ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../../../../bin)
  mark_as_advanced(ATR_DICT_PROGRAM)
  set(${out} ${ATR_DICT_PROGRAM} PARENT_SCOPE)
  if(NOT ATR_DICT_PROGRAM)
    set(${out} "" PARENT_SCOPE)
  endif()
endfunction()

# atr_check_dictionaries(FILES file... [CHARSETS name...] [KEYS pot_or_list] [STRICT])
#
# Adds a test `dictionaries/<file>` for each dictionary, relative to the source folder, that runs
# `atr-dict check` over it: with each charset that its texts have to fit, and with the keys that the
# program asks for. STRICT makes warnings fail too. The program is taken from the build, from beside
# the package, or from PATH; without it the tests are there and are reported as not run.
function(atr_check_dictionaries)
  cmake_parse_arguments(PARSE_ARGV 0 arg "STRICT" "KEYS" "FILES;CHARSETS")
  if(NOT arg_FILES OR arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "atr_check_dictionaries(FILES file... [CHARSETS name...] [KEYS file] [STRICT])")
  endif()
  atr_find_dict_program(program)
  if(NOT program)
    set(program atr-dict)
  endif()

  set(options)
  foreach(charset IN LISTS arg_CHARSETS)
    list(APPEND options --charset ${charset})
  endforeach()
  if(arg_KEYS)
    cmake_path(ABSOLUTE_PATH arg_KEYS BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
    list(APPEND options --keys ${arg_KEYS})
  endif()
  if(arg_STRICT)
    list(APPEND options --strict)
  endif()
  foreach(file IN LISTS arg_FILES)
    cmake_path(ABSOLUTE_PATH file BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} OUTPUT_VARIABLE path)
    cmake_path(RELATIVE_PATH path BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} OUTPUT_VARIABLE name)
    add_test(NAME dictionaries/${name} COMMAND ${program} check ${options} ${path})
  endforeach()
endfunction()
