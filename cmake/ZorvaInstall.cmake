# Installation: the package for find_package(ZorvaParser), the pkg-config file
# and the example forms. Libraries, headers and programs say themselves where
# they go; this is what they have in common.
include(CMakePackageConfigHelpers)

set(ZORVA_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/ZorvaParser)
set(ZORVA_INSTALL_EXAMPLEDIR ${CMAKE_INSTALL_DATADIR}/zorvaparser/examples)

install(EXPORT ZorvaParserTargets
  NAMESPACE ZorvaParser::
  DESTINATION ${ZORVA_INSTALL_CMAKEDIR})

configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/ZorvaParserConfig.cmake.in
  ${PROJECT_BINARY_DIR}/ZorvaParserConfig.cmake
  INSTALL_DESTINATION ${ZORVA_INSTALL_CMAKEDIR})
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/ZorvaParserConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${PROJECT_BINARY_DIR}/ZorvaParserConfig.cmake
  ${PROJECT_BINARY_DIR}/ZorvaParserConfigVersion.cmake
  DESTINATION ${ZORVA_INSTALL_CMAKEDIR})

# The prefix stands relative to the file, so that an installation can be moved.
file(RELATIVE_PATH ZORVA_PC_PREFIX
  ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" ZORVA_PC_PREFIX "${ZORVA_PC_PREFIX}")
configure_file(
  ${PROJECT_SOURCE_DIR}/cmake/zorvaparser.pc.in
  ${PROJECT_BINARY_DIR}/zorvaparser.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/zorvaparser.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/
  DESTINATION ${ZORVA_INSTALL_EXAMPLEDIR}
  FILES_MATCHING PATTERN "*.zorva" PATTERN "*.xml")
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md
  DESTINATION ${CMAKE_INSTALL_DOCDIR})
