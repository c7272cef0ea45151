# What every target of the project shares: warnings and Qt defines as one
# interface target, and the functions that declare host libraries and tests.

add_library(zorva_build_settings INTERFACE)
target_compile_features(zorva_build_settings INTERFACE cxx_std_17)
target_compile_options(zorva_build_settings INTERFACE
  -Wall -Wextra -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
  # Nobody replaces single functions of these libraries at load time; their own calls may be direct.
  -fno-semantic-interposition
  # Not where the sources lie, but what is in them makes a release.
  "$<$<NOT:$<CONFIG:Debug>>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>"
  "$<$<NOT:$<CONFIG:Debug>>:-ffile-prefix-map=${PROJECT_BINARY_DIR}=build>"
  $<$<NOT:$<CONFIG:Debug>>:-Wdate-time>
  $<$<BOOL:${ZORVAPARSER_WERROR}>:-Werror>)
# For the same reason the linker settles what a library calls in itself: a quarter of all names that
# would be looked up, one by one, when a program starts.
target_link_options(zorva_build_settings INTERFACE
  "$<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,SHARED_LIBRARY>:LINKER:-Bsymbolic-functions>")
# A library names libc also where it calls it through others only: Debian's rules for packages want that.
target_link_options(zorva_build_settings INTERFACE
  "$<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,SHARED_LIBRARY>:LINKER:--push-state,--no-as-needed,-lc,--pop-state>")
target_compile_definitions(zorva_build_settings INTERFACE
  QT_NO_KEYWORDS
  QT_NO_CAST_FROM_ASCII
  QT_NO_CAST_TO_ASCII
  QT_NO_CAST_FROM_BYTEARRAY
  QT_NO_URL_CAST_FROM_STRING
  QT_DEPRECATED_WARNINGS)
if(ZORVAPARSER_SANITIZE)
  target_compile_options(zorva_build_settings INTERFACE
    -fsanitize=${ZORVAPARSER_SANITIZE} -fno-omit-frame-pointer
    -fno-sanitize-recover=all)
  target_link_options(zorva_build_settings INTERFACE
    -fsanitize=${ZORVAPARSER_SANITIZE})
endif()
if(ZORVAPARSER_BUILD_FUZZ)
  # Coverage feedback for the fuzzers; their mains come from libFuzzer.
  target_compile_options(zorva_build_settings INTERFACE -fsanitize=fuzzer-no-link)
  target_link_options(zorva_build_settings INTERFACE -fsanitize=fuzzer-no-link)
endif()

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR};$ORIGIN")
# Two builds from different folders on different days give the same bytes: the
# build's own run path has a fixed length, and resources carry no time.
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)
set(CMAKE_AUTORCC_OPTIONS --format-version 1)

# Two hundred tests are to be linked: gold takes 0.24 s for one that takes the default linker 0.76 s.
if(ZORVAPARSER_BUILD_TESTS AND CMAKE_BUILD_TYPE STREQUAL "Debug")
  include(CheckLinkerFlag)
  check_linker_flag(CXX -fuse-ld=gold ZORVA_HAVE_GOLD)
  if(ZORVA_HAVE_GOLD)
    add_link_options(-fuse-ld=gold)
  endif()
endif()

# What every target that only tests shares: their own steps are few, so that nothing is gained by optimising them.
add_library(zorva_test_settings INTERFACE)
target_link_libraries(zorva_test_settings INTERFACE zorva_build_settings)
target_compile_options(zorva_test_settings INTERFACE $<$<CONFIG:Debug>:-O0>)

# zorva_precompile(<target> <headers>)
# Reads Qt's headers once for all targets that take the same set. The sources
# include what they use all the same: builds without this option hold them to it.
function(zorva_precompile target headers)
  if(ZORVAPARSER_PRECOMPILE)
    target_precompile_headers(${target} REUSE_FROM ${headers})
  endif()
endfunction()

# zorva_add_precompiled(<name> LINK <library>... HEADERS <header>...)
# A set for zorva_precompile.
function(zorva_add_precompiled name)
  cmake_parse_arguments(ARG "" "" "LINK;HEADERS" ${ARGN})
  add_library(${name} OBJECT ${PROJECT_SOURCE_DIR}/cmake/precompiled.cpp)
  target_link_libraries(${name} PRIVATE ${ARG_LINK})
  target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
  set_target_properties(${name} PROPERTIES AUTOMOC OFF POSITION_INDEPENDENT_CODE ON)
endfunction()

if(ZORVAPARSER_PRECOMPILE)
  # What many sources include, and no more: all of Qt's headers take an empty source 0.85 s, these 0.3 s.
  set(common_headers
    <QApplication> <QFile> <QHash> <QMap> <QPointer> <QRegularExpression> <QString> <QStringList> <QTimer> <QVariant>
    <QVector> <QWidget> <QXmlStreamReader> <algorithm> <functional> <memory>)
  zorva_add_precompiled(zorva_qt_headers
    LINK Qt5::Widgets zorva_build_settings
    HEADERS ${common_headers})
  if(ZORVAPARSER_BUILD_TESTS)
    find_package(Qt5 5.15 REQUIRED COMPONENTS Test)
    zorva_add_precompiled(zorva_qttest_headers
      LINK Qt5::Widgets Qt5::Test zorva_test_settings
      HEADERS ${common_headers} <QSignalSpy> <QTest>)
  endif()
endif()

# zorva_export_header(<folder> <prefix> <library>)
# Writes <build>/include/<folder>/<folder>_export.h with <prefix>_EXPORT.
function(zorva_export_header folder prefix library)
  set(ZORVA_EXPORT_PREFIX ${prefix})
  set(ZORVA_EXPORT_LIBRARY ${library})
  configure_file(${PROJECT_SOURCE_DIR}/cmake/export.h.in
    ${PROJECT_BINARY_DIR}/include/${folder}/${folder}_export.h @ONLY)
  zorva_install_development(${ZORVA_INSTALL_INCLUDEDIR}/${folder}
    ${PROJECT_BINARY_DIR}/include/${folder}/${folder}_export.h)
endfunction()

# zorva_add_host_library(<name> SOURCES ... HEADERS ... LINK ...)
# One SHARED library for one folder below host/, with the alias
# ZorvaParser::<name>, the export macro <NAME>_EXPORT and its installation.
# HEADERS are public; LINK is what those headers need.
function(zorva_add_host_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;HEADERS;LINK;PRIVATE_LINK" ${ARGN})
  string(TOUPPER ${name} prefix)
  zorva_export_header(${name} ${prefix} ${name})
  add_library(${name} SHARED ${ARG_SOURCES} ${ARG_HEADERS})
  add_library(ZorvaHost::${name} ALIAS ${name})
  add_library(ZorvaParser::${name} ALIAS ${name})
  target_compile_features(${name} PUBLIC cxx_std_17)
  target_compile_definitions(${name} PRIVATE ${prefix}_BUILD)
  target_include_directories(${name} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/host>
    $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include>
    $<INSTALL_INTERFACE:${ZORVA_INSTALL_INCLUDEDIR}>)
  target_link_libraries(${name}
    PUBLIC ${ARG_LINK}
    PRIVATE ${ARG_PRIVATE_LINK} $<BUILD_INTERFACE:zorva_build_settings>)
  # Qt keeps what these register with it, and what is made once a process lives
  # here: a module that brought them may go, they may not.
  target_link_options(${name} PRIVATE LINKER:-z,nodelete)
  set_target_properties(${name} PROPERTIES
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
    EXPORT_NAME ${name})
  zorva_install_library(${name})
  zorva_install_headers(${name} ${ARG_HEADERS})
endfunction()

# Where Qt keeps what belongs to a session; it wants nobody else to look into it.
set(ZORVA_TEST_RUNTIME_DIR ${PROJECT_BINARY_DIR}/runtime)
if(ZORVAPARSER_BUILD_TESTS)
  file(MAKE_DIRECTORY ${ZORVA_TEST_RUNTIME_DIR})
  file(CHMOD ${ZORVA_TEST_RUNTIME_DIR} PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
endif()
set(ZORVA_TEST_DESKTOP "")
foreach(variable QT_STYLE_OVERRIDE QT_QPA_PLATFORMTHEME QT_FONT_DPI QT_SCALE_FACTOR QT_AUTO_SCREEN_SCALE_FACTOR
    XDG_CURRENT_DESKTOP DESKTOP_SESSION KDE_FULL_SESSION LANGUAGE QT_XCB_GL_INTEGRATION)
  list(APPEND ZORVA_TEST_DESKTOP "${variable}=unset:")
endforeach()

# zorva_leave_desktop(<test>...)
# Neither the user's locale nor his desktop, nor whether he has logged in, makes a difference.
# After all else that sets their properties.
function(zorva_leave_desktop)
  set_property(TEST ${ARGN} APPEND PROPERTY ENVIRONMENT
    "LC_ALL=C.UTF-8" "XDG_RUNTIME_DIR=${ZORVA_TEST_RUNTIME_DIR}")
  set_property(TEST ${ARGN} APPEND PROPERTY ENVIRONMENT_MODIFICATION ${ZORVA_TEST_DESKTOP})
endfunction()

# zorva_add_nightly(<test> [COMMAND <word>...] [ENVIRONMENT <variable>=<value>...])
# The same executable once more as <test>_nightly, with larger numbers, on request: ctest -L nightly
function(zorva_add_nightly name)
  cmake_parse_arguments(ARG "" "" "COMMAND;ENVIRONMENT" ${ARGN})
  get_test_property(${name} ENVIRONMENT environment)
  add_test(NAME ${name}_nightly COMMAND ${name} ${ARG_COMMAND})
  set_tests_properties(${name}_nightly PROPERTIES
    ENVIRONMENT "${environment};${ARG_ENVIRONMENT}" TIMEOUT 7200 LABELS nightly)
  zorva_leave_desktop(${name}_nightly)
endfunction()

# zorva_generate_mocs(<target> <source>...)
# Has moc run for the sources that include what it makes. AUTOMOC takes a process of
# CMake's and one more compilation for each target, which is a lot for one file.
function(zorva_generate_mocs target)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/${target}_moc)
  foreach(source IN LISTS ARGN)
    file(STRINGS ${source} own REGEX "^#include \"[a-z0-9_]+\\.moc\"")
    if(own)
      string(REGEX REPLACE "^#include \"(.+)\"$" "\\1" moc ${own})
      qt5_generate_moc(${source} ${folder}/${moc} TARGET ${target})
      target_sources(${target} PRIVATE ${folder}/${moc})
    endif()
  endforeach()
  target_include_directories(${target} PRIVATE ${folder})
  set_target_properties(${target} PROPERTIES AUTOMOC OFF)
endfunction()

# zorva_add_test(<name> SOURCES ... LINK ... [LABELS ...] [XVFB] [TIMEOUT s])
# Registers one Qt Test executable. Tests run offscreen unless XVFB asks for a
# real X server of their own (label "xvfb").
function(zorva_add_test name)
  cmake_parse_arguments(ARG "XVFB" "TIMEOUT" "SOURCES;LINK;LABELS;ENVIRONMENT" ${ARGN})
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 600) # ends what hangs; how long the work takes is the machine's affair
  endif()
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE
    ${ARG_LINK} Qt5::Widgets Qt5::Test zorva_test_settings)
  zorva_precompile(${name} zorva_qttest_headers)
  # Headers are left to AUTOMOC, which looks into them.
  if(NOT "${ARG_SOURCES}" MATCHES "\\.h(;|$)")
    zorva_generate_mocs(${name} ${ARG_SOURCES})
  endif()
  target_compile_definitions(${name} PRIVATE
    ZORVA_EXAMPLES_DIR="${PROJECT_SOURCE_DIR}/examples"
    ZORVA_TEST_DATA_DIR="${PROJECT_SOURCE_DIR}/tests/data")
  set(environment
    "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/common/lsan.supp"
    "UBSAN_OPTIONS=print_stacktrace=1"
    "QT_LOGGING_RULES="
    "QTEST_FUNCTION_TIMEOUT=7200000" # one limit is enough, that of the whole test
    ${ARG_ENVIRONMENT})
  if(ARG_XVFB)
    add_test(NAME ${name}
      COMMAND xvfb-run -a -s "-screen 0 1920x1200x24" $<TARGET_FILE:${name}>)
    # The suppression of what the message bus keeps needs whole stacks.
    list(APPEND environment "QT_QPA_PLATFORM=xcb" "ASAN_OPTIONS=fast_unwind_on_malloc=0")
    list(APPEND ARG_LABELS xvfb)
  else()
    add_test(NAME ${name} COMMAND ${name})
    list(APPEND environment "QT_QPA_PLATFORM=offscreen")
  endif()
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT "${environment}" TIMEOUT ${ARG_TIMEOUT} LABELS "${ARG_LABELS}")
  zorva_leave_desktop(${name})
endfunction()
