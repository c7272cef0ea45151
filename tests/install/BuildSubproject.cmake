# Configures the project in SOURCE_DIR, which takes PROJECT in as a folder;
# builds and runs its program, and looks that it got no tests from us.
file(REMOVE_RECURSE ${WORK_DIR})
execute_process(
  COMMAND ${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${WORK_DIR} -G ${GENERATOR}
    -DPROJECT=${PROJECT} -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER}
    -DCMAKE_CXX_FLAGS=-O0
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(
  COMMAND ${CMAKE_COMMAND} --build ${WORK_DIR} --target host
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${WORK_DIR}/host COMMAND_ERROR_IS_FATAL ANY)
execute_process(
  COMMAND ${CMAKE_CTEST_COMMAND} --test-dir ${WORK_DIR} -N
  OUTPUT_VARIABLE said COMMAND_ERROR_IS_FATAL ANY)
if(NOT said MATCHES "Total Tests: 0")
  message(FATAL_ERROR "the project got tests: ${said}")
endif()
