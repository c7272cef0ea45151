# Makes the packages of BINARY_DIR in PACKAGES, and has lintian judge them.
file(REMOVE_RECURSE ${PACKAGES})
execute_process(
  COMMAND ${CPACK} -G DEB -B ${PACKAGES}
  WORKING_DIRECTORY ${BINARY_DIR}
  OUTPUT_QUIET ERROR_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(GLOB packages ${PACKAGES}/*.deb)
list(LENGTH packages count)
if(NOT count EQUAL 4)
  message(FATAL_ERROR "there should be four packages: ${packages}")
endif()

# A build for /usr/local has no folder for the architecture; that for /usr has.
set(suppressed "")
if(NOT LIBDIR MATCHES "/")
  set(suppressed --suppress-tags pkg-config-unavailable-for-cross-compilation)
endif()
execute_process(
  COMMAND ${LINTIAN} --allow-root --fail-on error,warning --tag-display-limit 0 ${suppressed} ${packages}
  COMMAND_ERROR_IS_FATAL ANY)

# Who links to the libraries depends on this package, and knows each symbol's version.
file(GLOB runtime ${PACKAGES}/libzorvaparser1_*.deb)
foreach(file shlibs symbols)
  execute_process(
    COMMAND dpkg-deb -I ${runtime} ${file}
    OUTPUT_VARIABLE said COMMAND_ERROR_IS_FATAL ANY)
  if(NOT said MATCHES "libzorvaparser" OR NOT said MATCHES "libvkbase")
    message(FATAL_ERROR "${file} does not tell of the libraries: ${said}")
  endif()
endforeach()
