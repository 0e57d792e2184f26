# The gallery's unattended demonstration never writes over the user's values file: it
# works on a temporary file of its own, or on the one --values names. Usage:
#   cmake -DGALLERY=... -DFOLDER=... -P gallery_demo_values.cmake
file(REMOVE_RECURSE "${FOLDER}")
set(user_file "${FOLDER}/config/corvex/ini/corvex-gallery.ini")
set(user_values "; The user's own values, never read by the demonstration\n[Gallery]\namount=7\n")
file(WRITE "${user_file}" "${user_values}")

function(run_demo)
  execute_process(
    COMMAND ${CMAKE_COMMAND} -E env "XDG_CONFIG_HOME=${FOLDER}/config" QT_QPA_PLATFORM=offscreen
            "${GALLERY}" --demo --screenshot "${FOLDER}/shot.png" ${ARGN}
    OUTPUT_VARIABLE output
    ERROR_VARIABLE errors
    RESULT_VARIABLE status)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "corvex-gallery --demo ${ARGN} exited with ${status}:\n${output}\n${errors}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

run_demo()
file(READ "${user_file}" after)
if(NOT after STREQUAL user_values)
  message(FATAL_ERROR "the demonstration changed the user's values file:\n${after}")
endif()
if(output MATCHES "Saved the values to ([^\n]*)")
  set(demo_file "${CMAKE_MATCH_1}")
  if(demo_file STREQUAL user_file OR EXISTS "${demo_file}")
    message(FATAL_ERROR "the demonstration's own file ${demo_file} is the user's or was left behind")
  endif()
else()
  message(FATAL_ERROR "the demonstration did not say where it saved:\n${output}")
endif()

run_demo(--values "${FOLDER}/chosen.ini")
file(READ "${FOLDER}/chosen.ini" chosen)
if(NOT chosen MATCHES "newsletter")
  message(FATAL_ERROR "--values: the demonstration did not save to the file named:\n${chosen}")
endif()
file(READ "${user_file}" after)
if(NOT after STREQUAL user_values)
  message(FATAL_ERROR "the demonstration with --values changed the user's values file")
endif()
