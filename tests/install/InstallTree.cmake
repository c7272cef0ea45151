# Installs the build into an empty PREFIX.
file(REMOVE_RECURSE ${PREFIX})
execute_process(
  COMMAND ${CMAKE_COMMAND} --install ${BINARY_DIR} --prefix ${PREFIX}
  OUTPUT_QUIET
  COMMAND_ERROR_IS_FATAL ANY)

foreach(file
    bin/zorvashell
    ${LIBDIR}/libzorvaparser.so
    ${LIBDIR}/cmake/ZorvaParser/ZorvaParserConfig.cmake
    ${LIBDIR}/pkgconfig/zorvaparser.pc
    ${INCLUDEDIR}/zorvaparser/zorvaformular.h
    ${INCLUDEDIR}/zorvaparser/zorvaparser_export.h
    ${INCLUDEDIR}/layout/floatgrouplayout.h
    ${INCLUDEDIR}/valueframework/tree.h)
  if(NOT EXISTS ${PREFIX}/${file})
    message(FATAL_ERROR "${file} is not installed")
  endif()
endforeach()

file(GLOB_RECURSE private_headers ${PREFIX}/*_p.h)
if(private_headers)
  message(FATAL_ERROR "private headers are installed: ${private_headers}")
endif()
