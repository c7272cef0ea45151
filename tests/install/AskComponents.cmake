# Configures the host in SOURCE_DIR against PREFIX with a component that is
# there and with one that is not.
function(ask component result output)
  file(REMOVE_RECURSE ${WORK_DIR})
  execute_process(
    COMMAND ${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${WORK_DIR} -G ${GENERATOR}
      -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_PREFIX_PATH=${PREFIX} -DWANTED=${component}
    RESULT_VARIABLE ended OUTPUT_QUIET ERROR_VARIABLE said)
  set(${result} ${ended} PARENT_SCOPE)
  string(REGEX REPLACE "[ \n]+" " " said "${said}")
  set(${output} "${said}" PARENT_SCOPE)
endfunction()

ask(frequencylists result said)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "frequencylists is a component, but: ${said}")
endif()
ask(frequencylist result said)
if(result EQUAL 0 OR NOT said MATCHES "has no component \"frequencylist\". Its components are .*frequencylists")
  message(FATAL_ERROR "a component that is none is not told plainly: ${said}")
endif()
