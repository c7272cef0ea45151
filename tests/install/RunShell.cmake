# The installed program finds the installed library: it gets as far as telling
# that there is no form in the file.
execute_process(
  COMMAND ${PREFIX}/bin/zorvashell ${FORM}
  RESULT_VARIABLE result
  ERROR_VARIABLE said)
if(NOT result EQUAL 1 OR NOT said MATCHES "holds no form")
  message(FATAL_ERROR "zorvashell ended with ${result}: ${said}")
endif()
