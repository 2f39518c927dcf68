# Runs xgettext over copies of the sources in which the two forms of a plural stand bare, since
# xgettext takes ATR_T(...) in an argument for a message of its own.
if(NOT xgettext)
  message(FATAL_ERROR "xgettext is not installed; Debian has it in the package gettext")
endif()

set(string "\"([^\"\\\\]|\\\\.)*\"")
set(literal "[ \t\n]*((${string}[ \t\n]*)+)")
set(marked "ATR_T\\(${literal}\\)")

file(REMOVE_RECURSE ${scratch})
file(STRINGS ${list} files)
set(names)
foreach(file IN LISTS files)
  # Semicolons and brackets have a meaning for CMake, but not in one quoted text.
  file(READ ${file} text)
  string(REGEX REPLACE "plural\\([ \t\n]*${marked}" "plural(\\1" text "${text}")
  string(REGEX REPLACE "(plural\\(${literal},[ \t\n]*)${marked}" "\\1\\5" text "${text}")
  cmake_path(RELATIVE_PATH file BASE_DIRECTORY ${folder} OUTPUT_VARIABLE name)
  file(WRITE ${scratch}/${name} "${text}")
  list(APPEND names ${name})
endforeach()

execute_process(
  COMMAND ${xgettext} --language=C++ --from-code=UTF-8 --sort-by-file --force-po --add-comments=TRANSLATORS
    --keyword --keyword=ATR_T --keyword=atr_raw --keyword=message --keyword=plural:1,2
    --keyword=atr_translate --output=${output} ${names}
  WORKING_DIRECTORY ${scratch} COMMAND_ERROR_IS_FATAL ANY)

# An atr-dict that was built without PO files does not know the command.
if(atr_dict)
  execute_process(COMMAND ${atr_dict} to-pot --help RESULT_VARIABLE status OUTPUT_QUIET ERROR_QUIET)
  if(status EQUAL 0)
    execute_process(COMMAND ${atr_dict} to-pot ${output} -o ${output} COMMAND_ERROR_IS_FATAL ANY)
  endif()
endif()
