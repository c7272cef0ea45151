# The HTML reference of the public headers: the target "reference", part of the
# component Documentation where it is built. Nothing in the public headers is left
# undocumented; a test looks.
find_package(Doxygen QUIET)
if(NOT DOXYGEN_FOUND)
  if(ZORVAPARSER_BUILD_REFERENCE)
    message(FATAL_ERROR "ZORVAPARSER_BUILD_REFERENCE needs doxygen")
  endif()
  return()
endif()

get_property(headers GLOBAL PROPERTY ZORVA_PUBLIC_HEADERS)
set(roots ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/host ${PROJECT_BINARY_DIR}/include)
set(input "")
foreach(header IN LISTS headers)
  foreach(root IN LISTS roots)
    if(EXISTS ${root}/${header})
      list(APPEND input ${root}/${header})
      break()
    endif()
  endforeach()
endforeach()
# Export macros stand before class names, where doxygen would take them for one.
list(TRANSFORM headers REPLACE "/.*" "" OUTPUT_VARIABLE exports)
list(REMOVE_DUPLICATES exports)
list(TRANSFORM exports TOUPPER)
list(TRANSFORM exports APPEND "_EXPORT=")
list(JOIN exports " " ZORVA_REFERENCE_EXPORTS)
list(TRANSFORM input REPLACE "(.+)" "\"\\1\"")
list(JOIN input " " ZORVA_REFERENCE_INPUT)
list(TRANSFORM roots REPLACE "(.+)" "\"\\1\"")
list(JOIN roots " " ZORVA_REFERENCE_ROOTS)
set(ZORVA_REFERENCE_DIR ${PROJECT_BINARY_DIR}/reference)
configure_file(Doxyfile.in ${PROJECT_BINARY_DIR}/Doxyfile @ONLY)

set(all "")
if(ZORVAPARSER_BUILD_REFERENCE)
  set(all ALL)
endif()
add_custom_target(reference ${all}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${ZORVA_REFERENCE_DIR}
  COMMAND Doxygen::doxygen ${PROJECT_BINARY_DIR}/Doxyfile
  VERBATIM)
install(DIRECTORY ${ZORVA_REFERENCE_DIR}/html
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT Documentation OPTIONAL)

if(ZORVAPARSER_BUILD_TESTS)
  # All that doxygen says about the headers is that something is not documented.
  add_test(NAME reference_complete
    COMMAND sh -c "rm -f reference/warnings && '${CMAKE_COMMAND}' --build . --target reference > /dev/null \
      && cat reference/warnings && test ! -s reference/warnings"
    WORKING_DIRECTORY ${PROJECT_BINARY_DIR})
  set_tests_properties(reference_complete PROPERTIES LABELS checks TIMEOUT 600)
endif()
