# Configures, builds and runs the host in SOURCE_DIR against PREFIX; WAY is
# "cmake" or "pkgconfig".
file(REMOVE_RECURSE ${WORK_DIR})
set(options
  -G ${GENERATOR}
  -DCMAKE_CXX_COMPILER=${CXX}
  -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER}
  -DCMAKE_BUILD_RPATH=${PREFIX}/${LIBDIR})
if(SANITIZE)
  list(APPEND options -DCMAKE_CXX_FLAGS=-fsanitize=${SANITIZE})
endif()
if(WAY STREQUAL "pkgconfig")
  list(APPEND options -DCONSUMER_USES_PKG_CONFIG=ON)
  set(ENV{PKG_CONFIG_PATH} ${PREFIX}/${LIBDIR}/pkgconfig)
else()
  list(APPEND options -DCMAKE_PREFIX_PATH=${PREFIX})
endif()

execute_process(
  COMMAND ${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${WORK_DIR} ${options}
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(
  COMMAND ${CMAKE_COMMAND} --build ${WORK_DIR}
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(
  COMMAND ${WORK_DIR}/consumer
  COMMAND_ERROR_IS_FATAL ANY)
