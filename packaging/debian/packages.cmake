# The Debian packages, one for each component: cpack in a build folder makes
# them, scripts/package the whole way.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zorvaparser)
set(CPACK_PACKAGE_VENDOR ZorvaParser)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_PACKAGE_CONTACT "ZorvaParser Maintainers <maintainers@zorvaparser.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL Runtime Development Tools Documentation)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS Runtime)
set(CPACK_COMPONENT_TOOLS_DEPENDS Runtime)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 0zorva1) # a distribution's own packages begin with 1 and replace ours
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/lib)

set(about "ZorvaParser turns declarative XML descriptions (.zorva) into live parameter
forms for radio-monitoring devices: rows with labels, units and limits, bound
to typed values, with a script, and parameter XML to and from the device.")

# zorva_debian_package(<component> <name> <section> <synopsis> <what is in it>)
macro(zorva_debian_package component name section synopsis content)
  string(TOUPPER ${component} key)
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${name})
  set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${section})
  # The first line is the synopsis, an empty line is a dot.
  set(CPACK_COMPONENT_${key}_DESCRIPTION "${synopsis}\n${about}\n.\n${content}")
endmacro()

zorva_debian_package(Runtime libzorvaparser${PROJECT_VERSION_MAJOR} libs
  "live parameter forms from XML descriptions (libraries)"
  "This package holds the shared libraries.")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA
  ${PROJECT_BINARY_DIR}/packaging/symbols ${CMAKE_CURRENT_LIST_DIR}/triggers)

zorva_debian_package(Development libzorvaparser-dev libdevel
  "live parameter forms from XML descriptions (development files)"
  "This package holds the headers, and what CMake and pkg-config need to find the
libraries.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "qtbase5-dev, qtscript5-dev")

zorva_debian_package(Tools zorva-tools devel
  "live parameter forms from XML descriptions (programs)"
  "This package holds the programs that show forms and help to write them.")
set(CPACK_DEBIAN_TOOLS_PACKAGE_SHLIBDEPS ON)

zorva_debian_package(Documentation zorvaparser-doc doc
  "live parameter forms from XML descriptions (documentation)"
  "This package holds the manual, the reference of the classes, and example forms.")
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)

# What Debian wants beside the installed files is added to the staged trees.
file(STRINGS ${PROJECT_SOURCE_DIR}/LICENSE license)
list(TRANSFORM license PREPEND " ")
list(TRANSFORM license REPLACE "^ $" " .")
list(JOIN license "\n" ZORVA_LICENSE)
configure_file(${CMAKE_CURRENT_LIST_DIR}/copyright.in ${PROJECT_BINARY_DIR}/packaging/copyright @ONLY)
configure_file(${CMAKE_CURRENT_LIST_DIR}/stage.cmake.in ${PROJECT_BINARY_DIR}/packaging/stage.cmake @ONLY)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_BINARY_DIR}/packaging/stage.cmake)
set(CPACK_POST_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/finish.cmake)
include(CPack)
