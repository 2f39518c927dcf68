# What a program with messages does at its build: extract them, and put its dictionaries in place.

include(${CMAKE_CURRENT_LIST_DIR}/ZLTatrDictionaries.cmake)

set(ATR_EXTRACT_SCRIPT ${CMAKE_CURRENT_LIST_DIR}/ZLTatrExtract.cmake)

# atr_extract_messages(TARGET target [OUTPUT file.pot])
#
# Adds a target `<target>_messages` that collects the messages of the target's C++ sources in a
# template for translators, by default <target>.pot in the binary folder. It needs xgettext. It sees
# literals in ATR_T, atr_raw, atr::message, atr::plural and atr_translate("..."), but not those of a
# named `atr_translate message("...")`: mark these with ATR_T. Where there is an atr-dict that knows PO
# files, tails become contexts, as translators' editors know them: `Open\@menu` is then the msgid
# "Open" in the msgctxt "menu".
function(atr_extract_messages)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "TARGET;OUTPUT" "")
  if(NOT TARGET "${arg_TARGET}")
    message(FATAL_ERROR "atr_extract_messages: there is no target '${arg_TARGET}'")
  endif()
  if(NOT arg_OUTPUT)
    set(arg_OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${arg_TARGET}.pot)
  endif()
  cmake_path(ABSOLUTE_PATH arg_OUTPUT BASE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
  find_program(ATR_XGETTEXT xgettext)
  atr_find_dict_program(program)
  set(program_file ${program})
  if(TARGET "${program}")
    set(program_file $<TARGET_FILE:${program}>)
    if(CMAKE_CROSSCOMPILING)
      set(program "")
      set(program_file "")
    endif()
  endif()

  get_target_property(folder ${arg_TARGET} SOURCE_DIR)
  get_target_property(sources ${arg_TARGET} SOURCES)
  list(FILTER sources INCLUDE REGEX "\\.(c|cc|cpp|cxx|h|hh|hpp|hxx)$")
  set(files)
  foreach(source IN LISTS sources)
    cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${folder})
    list(APPEND files ${source})
  endforeach()
  set(list ${CMAKE_CURRENT_BINARY_DIR}/${arg_TARGET}_messages.txt)
  list(JOIN files "\n" lines)
  file(CONFIGURE OUTPUT ${list} CONTENT "${lines}\n" @ONLY)

  add_custom_command(OUTPUT ${arg_OUTPUT}
    COMMAND ${CMAKE_COMMAND} -D list=${list} -D folder=${folder} -D output=${arg_OUTPUT}
      -D scratch=${CMAKE_CURRENT_BINARY_DIR}/${arg_TARGET}_messages -D xgettext=${ATR_XGETTEXT}
      -D atr_dict=${program_file} -P ${ATR_EXTRACT_SCRIPT}
    DEPENDS ${files} ${list} ${ATR_EXTRACT_SCRIPT} ${program}
    COMMENT "Extracting the messages of ${arg_TARGET}" VERBATIM)
  add_custom_target(${arg_TARGET}_messages DEPENDS ${arg_OUTPUT})
endfunction()

# atr_add_dictionaries(TARGET target FILES file... [DESTINATION folder] [DEFAULT file])
#
# Installs each dictionary as <folder>/<language>/<file>, where <language> is the name of the folder
# that it stands in, and puts it into the same place below the target's binary folder:
# dictionaries/<language>/<file>. To have it found, ZEL_PATH names <folder>, by default
# <datadir>/<target>/dictionaries, and ZELTRA_TRANSLATION_DICTIONARY <language>/<file>. DEFAULT also
# installs one as the dictionary that is taken without these two variables.
function(atr_add_dictionaries)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "TARGET;DESTINATION;DEFAULT" "FILES")
  if(NOT TARGET "${arg_TARGET}")
    message(FATAL_ERROR "atr_add_dictionaries: there is no target '${arg_TARGET}'")
  endif()
  if(NOT arg_DESTINATION)
    include(GNUInstallDirs)
    set(arg_DESTINATION ${CMAKE_INSTALL_DATADIR}/${arg_TARGET}/dictionaries)
  endif()
  foreach(file IN LISTS arg_FILES)
    cmake_path(ABSOLUTE_PATH file)
    cmake_path(GET file PARENT_PATH language)
    cmake_path(GET language FILENAME language)
    cmake_path(GET file FILENAME name)
    atr_place_dictionary(${file} ${arg_DESTINATION} ${language}/${name})
  endforeach()
  if(arg_DEFAULT)
    cmake_path(ABSOLUTE_PATH arg_DEFAULT)
    atr_place_dictionary(${arg_DEFAULT} ${arg_DESTINATION}
      Configuration/Xresources/en_US/en_US_Dict.py)
  endif()
endfunction()

function(atr_place_dictionary file destination place)
  if(NOT EXISTS ${file})
    message(FATAL_ERROR "atr_add_dictionaries: there is no file '${file}'")
  endif()
  configure_file(${file} ${CMAKE_CURRENT_BINARY_DIR}/dictionaries/${place} COPYONLY)
  cmake_path(GET place PARENT_PATH folder)
  cmake_path(GET place FILENAME name)
  install(FILES ${file} DESTINATION ${destination}/${folder} RENAME ${name})
endfunction()
