# Runs corvex-script on a script in a fresh folder tree that drive T: maps to, and compares
# its standard output with the expected file, byte for byte. The tree is made here and
# removed afterwards; the user's own drive configuration is kept out of the run.
#   cmake -DSCRIPT_HOST=... -DINPUT=... -DEXPECTED=... -DTREE=... -P run_on_tree.cmake
file(REMOVE_RECURSE "${TREE}")
foreach(dir Data my.dir .hidden Case "Program Files" config)
  file(MAKE_DIRECTORY "${TREE}/${dir}")
endforeach()
foreach(f Data/report.txt Data/archive.tar.gz Data/README my.dir/README .hidden/inside.txt
          readonly.txt Case/Report.TXT Case/report.txt "Program Files/Sample file.txt")
  file(WRITE "${TREE}/${f}" "x")
endforeach()
file(CHMOD "${TREE}/readonly.txt" PERMISSIONS OWNER_READ GROUP_READ WORLD_READ)
file(CREATE_LINK "${TREE}/missing" "${TREE}/dangling" SYMBOLIC)

execute_process(
  COMMAND ${CMAKE_COMMAND} -E env "CORVEX_DRIVES=T=${TREE}" "XDG_CONFIG_HOME=${TREE}/config"
          "${SCRIPT_HOST}" "${INPUT}"
  WORKING_DIRECTORY "${TREE}"
  OUTPUT_VARIABLE actual
  ERROR_VARIABLE diagnostics
  RESULT_VARIABLE status)
file(CHMOD "${TREE}/readonly.txt" PERMISSIONS OWNER_READ OWNER_WRITE)
file(REMOVE_RECURSE "${TREE}")
if(NOT status EQUAL 0)
  message(FATAL_ERROR "corvex-script exited with ${status}: ${diagnostics}")
endif()
file(READ "${EXPECTED}" expected)
if(NOT actual STREQUAL expected)
  file(WRITE "${TREE}.actual.txt" "${actual}")
  message(FATAL_ERROR "output differs from ${EXPECTED}; actual output in ${TREE}.actual.txt")
endif()
