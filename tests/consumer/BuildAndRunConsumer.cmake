# Installs the TerrixExchange build BUILD_DIR into a fresh prefix under
# WORK_DIR, configures and builds the host program in CONSUMER_SOURCE_DIR
# against it with find_package, runs it on EXAMPLE and checks what it prints.
# With SOURCE_DIR the host adds the project's sources with add_subdirectory
# instead, and nothing is installed.

function(run_step description)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${description} failed (${result}):\n${output}")
  endif()
  set(step_output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE "${WORK_DIR}")
set(prefix "${WORK_DIR}/prefix")

if(SOURCE_DIR)
  set(where "-DTERRIX_SOURCE_DIR=${SOURCE_DIR}")
else()
  run_step("Installing the package" ${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}")
  set(where "-DCMAKE_PREFIX_PATH=${prefix}")
endif()
run_step("Configuring the consumer"
  ${CMAKE_COMMAND} -S "${CONSUMER_SOURCE_DIR}" -B "${WORK_DIR}/build"
  "${where}"
  "-DCMAKE_CXX_COMPILER=${CXX_COMPILER}"
  "-DCMAKE_BUILD_TYPE=${BUILD_TYPE}"
  "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}"
  "-DCMAKE_EXE_LINKER_FLAGS=${LINKER_FLAGS}")
run_step("Building the consumer" ${CMAKE_COMMAND} --build "${WORK_DIR}/build" --parallel 2)
run_step("Running the consumer" "${WORK_DIR}/build/profile-info" "${EXAMPLE}")

set(expected "Profile 'NS-MP07'\n  layers 1-4: 0 m to 8 m\n  layers 5-6: 8 m to 22 m\n  layers 7-12: 22 m to 40 m\n")
if(NOT step_output STREQUAL expected)
  message(FATAL_ERROR "The consumer printed:\n${step_output}\nexpected:\n${expected}")
endif()
message(STATUS "The library builds and runs a host program:\n${step_output}")

# The host that edits a value writes the file back with that line alone new.
run_step("Running the editing consumer" "${WORK_DIR}/build/edit-profile" "${EXAMPLE}" "${WORK_DIR}/edited.terrix")
file(READ "${EXAMPLE}" original)
file(READ "${WORK_DIR}/edited.terrix" edited)
string(REPLACE "         2      22.0      19.5       1.5       2.5       0.0       0.0      80.0"
               "         2      22.0      19.5       1.5       2.5       5.0       0.0      80.0" expected "${original}")
if(NOT edited STREQUAL expected OR edited STREQUAL original)
  message(FATAL_ERROR "The editing consumer wrote:\n${edited}")
endif()
