# Builds the benches of PROJECT, optimised, and holds what they count against what is held.
execute_process(
  COMMAND ${CMAKE_COMMAND} -S ${PROJECT} -B ${WORK_DIR} -G ${GENERATOR}
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER}
    -DZORVAPARSER_BUILD_BENCH=ON -DZORVAPARSER_BUILD_TESTS=OFF -DZORVAPARSER_BUILD_EXAMPLES=OFF
    -DZORVAPARSER_BUILD_SHELL=OFF -DZORVAPARSER_BUILD_TOOLS=OFF -DZORVAPARSER_WERROR=ON
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(
  COMMAND ${CMAKE_COMMAND} --build ${WORK_DIR} --target zorva-goals
  OUTPUT_VARIABLE said RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "the benches do not build:\n${said}")
endif()
execute_process(
  COMMAND ${PYTHON} ${PROJECT}/bench/counts.py ${WORK_DIR}/bin/zorva-goals --rows 100,1000 --check
  COMMAND_ERROR_IS_FATAL ANY)
