# Runs corvex-script on a script file and compares its standard output with the expected
# file, byte for byte. Usage:
#   cmake -DSCRIPT_HOST=... -DINPUT=... -DEXPECTED=... -P compare_output.cmake
execute_process(
  COMMAND "${SCRIPT_HOST}" "${INPUT}"
  OUTPUT_VARIABLE actual
  ERROR_VARIABLE diagnostics
  RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "corvex-script exited with ${status}: ${diagnostics}")
endif()
file(READ "${EXPECTED}" expected)
if(NOT actual STREQUAL expected)
  file(WRITE "${CMAKE_CURRENT_BINARY_DIR}/script_actual.txt" "${actual}")
  message(FATAL_ERROR "output differs from ${EXPECTED}; actual output:\n${actual}")
endif()
