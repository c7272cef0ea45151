# What installs where. Each file belongs to one of four components, which are
# also the Debian packages (packaging/CMakeLists.txt):
#
#   Runtime        the shared libraries and their translations libzorvaparser1
#   Development    headers, links to the libraries, CMake      libzorvaparser-dev
#                  package, pkg-config files
#   Tools          the programs, their man pages, completions,  zorva-tools
#                  desktop entry, MIME type, icons
#   Documentation  pages, examples, HTML reference             zorvaparser-doc
#
# cmake --install <build> --component <name> installs one of them.
include(CMakePackageConfigHelpers)

# Public headers install below one folder, so that <vkbase/observable.h> and
# <zorvaparser/zorvaformular.h> read alike in the tree and in an installation.
set(ZORVA_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR}/zorvaparser-${PROJECT_VERSION_MAJOR})
set(ZORVA_INSTALL_CMAKEDIR ${CMAKE_INSTALL_LIBDIR}/cmake/ZorvaParser)
# Beside those of the next major version.
set(ZORVA_INSTALL_TRANSLATIONDIR ${CMAKE_INSTALL_DATADIR}/zorvaparser-${PROJECT_VERSION_MAJOR}/translations)
set(ZORVA_INSTALL_EXAMPLEDIR ${CMAKE_INSTALL_DATADIR}/zorvaparser/examples)
set(ZORVA_PACKAGING_DIR ${PROJECT_SOURCE_DIR}/packaging)

# zorva_install_development(<destination> <file>...)
function(zorva_install_development destination)
  if(ZORVAPARSER_INSTALL)
    install(FILES ${ARGN} DESTINATION ${destination} COMPONENT Development)
  endif()
endfunction()

# zorva_install_headers(<folder> <header>...)
# Installs public headers below <folder>, and notes each for the check that it
# compiles alone.
function(zorva_install_headers folder)
  zorva_install_development(${ZORVA_INSTALL_INCLUDEDIR}/${folder} ${ARGN})
  foreach(header IN LISTS ARGN)
    get_filename_component(file ${header} NAME)
    set_property(GLOBAL APPEND PROPERTY ZORVA_PUBLIC_HEADERS ${folder}/${file})
  endforeach()
endfunction()

# zorva_install_library(<target>)
# The library with its version goes to Runtime, the plain name that linkers
# look for to Development, the target into the CMake package.
function(zorva_install_library target)
  set_property(GLOBAL APPEND PROPERTY ZORVA_LIBRARIES ${target})
  if(ZORVAPARSER_INSTALL)
    install(TARGETS ${target} EXPORT ZorvaParserTargets
      LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        COMPONENT Runtime NAMELINK_COMPONENT Development
      ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Development
      RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Runtime)
  endif()
endfunction()

# zorva_install_program(<target> [MAN <page>...])
# The program with its man page packaging/man/<target>.1, further pages if it
# has some ("zorva-check.1"), and its bash completion
# packaging/completions/<target>. Pages may use @PROJECT_VERSION@.
function(zorva_install_program target)
  cmake_parse_arguments(ARG "" "" "MAN" ${ARGN})
  if(NOT ZORVAPARSER_INSTALL)
    return()
  endif()
  install(TARGETS ${target} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Tools)
  foreach(page IN ITEMS ${target}.1 LISTS ARG_MAN)
    configure_file(${ZORVA_PACKAGING_DIR}/man/${page} ${PROJECT_BINARY_DIR}/man/${page} @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/man/${page}
      DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT Tools)
  endforeach()
  install(FILES ${ZORVA_PACKAGING_DIR}/completions/${target}
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT Tools)
endfunction()

# zorva_install_package()
# find_package(ZorvaParser), the pkg-config files, the pages and example forms.
function(zorva_install_package)
  install(EXPORT ZorvaParserTargets NAMESPACE ZorvaParser::
    DESTINATION ${ZORVA_INSTALL_CMAKEDIR} COMPONENT Development)

  get_property(ZORVA_LIBRARIES GLOBAL PROPERTY ZORVA_LIBRARIES)
  configure_package_config_file(
    ${PROJECT_SOURCE_DIR}/cmake/ZorvaParserConfig.cmake.in
    ${PROJECT_BINARY_DIR}/ZorvaParserConfig.cmake
    INSTALL_DESTINATION ${ZORVA_INSTALL_CMAKEDIR}
    PATH_VARS ZORVA_INSTALL_TRANSLATIONDIR)
  write_basic_package_version_file(
    ${PROJECT_BINARY_DIR}/ZorvaParserConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
  zorva_install_development(${ZORVA_INSTALL_CMAKEDIR}
    ${PROJECT_BINARY_DIR}/ZorvaParserConfig.cmake
    ${PROJECT_BINARY_DIR}/ZorvaParserConfigVersion.cmake)

  # The prefix stands relative to the file, so that an installation can be moved.
  file(RELATIVE_PATH ZORVA_PC_PREFIX
    ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
  string(REGEX REPLACE "/$" "" ZORVA_PC_PREFIX "${ZORVA_PC_PREFIX}")
  foreach(module zorvaparser zorvaparser-hostkit)
    configure_file(
      ${PROJECT_SOURCE_DIR}/cmake/${module}.pc.in
      ${PROJECT_BINARY_DIR}/${module}.pc @ONLY)
    zorva_install_development(${CMAKE_INSTALL_LIBDIR}/pkgconfig ${PROJECT_BINARY_DIR}/${module}.pc)
  endforeach()

  install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/
    DESTINATION ${ZORVA_INSTALL_EXAMPLEDIR} COMPONENT Documentation
    FILES_MATCHING PATTERN "*.zorva" PATTERN "*.xml" PATTERN "*.js")
  install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md
    DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT Documentation)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs
    DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT Documentation)
endfunction()
