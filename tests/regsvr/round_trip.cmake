# corvex-regsvr on the built libcorvex.so: registering writes the library into the
# registration file named by CORVEX_REGISTRATION_FILE, registering again changes nothing,
# unregistering leaves the file byte for byte as it was, and failures exit non-zero.
# Usage: cmake -DREGSVR=... -DLIBRARY=... -DWORK=... -P round_trip.cmake
file(REMOVE_RECURSE "${WORK}")
file(MAKE_DIRECTORY "${WORK}")
set(registry "${WORK}/registrations.ini")
set(before "; another library's entries stay\n[CLSID\\{00000000-1111-2222-3333-444444444444}]\nName=Other\n")
file(WRITE "${registry}" "${before}")
set(ENV{CORVEX_REGISTRATION_FILE} "${registry}")

function(regsvr expected_status)
  execute_process(COMMAND "${REGSVR}" ${ARGN}
    OUTPUT_VARIABLE out ERROR_VARIABLE err RESULT_VARIABLE status)
  if(NOT status EQUAL expected_status)
    message(FATAL_ERROR "corvex-regsvr ${ARGN} exited with ${status}, not ${expected_status}:\n${out}${err}")
  endif()
  set(out "${out}" PARENT_SCOPE)
endfunction()

regsvr(0)
if(NOT out MATCHES "DllRegisterServer in .*libcorvex.so succeeded")
  message(FATAL_ERROR "registering printed: ${out}")
endif()
file(READ "${registry}" registered)
foreach(expected
    "Description=Corvex Custom Controls Library 1.04" "Locale=0x409" "FileVersion=1.0.0.4"
    "Name=BooleanBox" "Name=ppgMSGBOX" "PropertyPages=" "InprocServer=${LIBRARY}")
  string(FIND "${registered}" "${expected}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "the registration file lacks \"${expected}\":\n${registered}")
  endif()
endforeach()

regsvr(0 "${LIBRARY}")
file(READ "${registry}" again)
if(NOT again STREQUAL registered)
  message(FATAL_ERROR "registering twice changed the file")
endif()

regsvr(0 -u)
if(NOT out MATCHES "DllUnregisterServer in .*succeeded")
  message(FATAL_ERROR "unregistering printed: ${out}")
endif()
file(READ "${registry}" after)
if(NOT after STREQUAL before)
  message(FATAL_ERROR "unregistering did not give back the file as it was:\n${after}")
endif()
regsvr(0 -u "${LIBRARY}")

regsvr(3 "${WORK}/no-such-library.so")
regsvr(2 -x)
regsvr(2 "${LIBRARY}" "${LIBRARY}")
# A library that cannot write its registration file fails, and the tool says so.
file(REMOVE "${registry}")
file(MAKE_DIRECTORY "${registry}")
regsvr(1)
file(REMOVE_RECURSE "${WORK}")
