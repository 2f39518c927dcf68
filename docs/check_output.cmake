# Runs a program and compares its output, and its errors where there is an expectation of them.
#   cmake -D program=FILE -D emulator=COMMAND -D expected=FILE -P check_output.cmake
# expected.out and expected.err hold the texts; expected.windows.out comes first on Windows.
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${emulator} ${program}
  RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE errors)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "The program ended with ${result}.\n${output}${errors}")
endif()

function(compare what text file)
  if(program MATCHES "\\.exe$" AND EXISTS "${expected}.windows.${file}")
    set(file windows.${file})
  endif()
  file(READ "${expected}.${file}" wanted)
  string(REPLACE "\r" "" text "${text}")
  if(NOT text STREQUAL wanted)
    message(FATAL_ERROR "${what}, expected:\n${wanted}\nactual:\n${text}")
  endif()
endfunction()

compare("Output" "${output}" out)
if(EXISTS "${expected}.err")
  compare("Errors" "${errors}" err)
endif()
