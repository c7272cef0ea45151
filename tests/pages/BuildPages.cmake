# Compiles the code blocks in BLOCKS against the installation in PREFIX, and
# runs the programs among them. What was compiled before is compiled again when its
# block or a header of the installation has changed.
file(MAKE_DIRECTORY ${WORK_DIR})
set(ENV{PKG_CONFIG_PATH} ${PREFIX}/${LIBDIR}/pkgconfig)
set(options -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${CXX} -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER}
  -DCMAKE_PREFIX_PATH=${PREFIX})

# build(<source> <folder>)
function(build source folder)
  execute_process(
    COMMAND ${CMAKE_COMMAND} -S ${source} -B ${folder} ${options} -DBLOCKS=${BLOCKS}
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  execute_process(
    COMMAND ${CMAKE_COMMAND} --build ${folder}
    OUTPUT_VARIABLE said RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${said}")
  endif()
endfunction()

# compile_by_page(<page> <folder>): by the page's own line with pkg-config. Where the
# prefix has blanks, it stands in an eval, as the page on embedding tells.
function(compile_by_page page folder)
  file(GLOB lines ${BLOCKS}/sh/${page}-*.sh)
  foreach(line IN LISTS lines)
    file(READ ${line} command)
    if(command MATCHES "pkg-config")
      if(PREFIX MATCHES " ")
        set(command "eval \"${command}\"")
      endif()
      execute_process(COMMAND sh -c "${command}" WORKING_DIRECTORY ${folder} COMMAND_ERROR_IS_FATAL ANY)
    endif()
  endforeach()
endfunction()

# run(<program> <form>): the driver looks at the window and closes it; the form
# lies where the program looks for it, and the driver beside it, since the loader
# takes no path with blanks.
function(run program form)
  get_filename_component(folder ${program} DIRECTORY)
  file(COPY ${form} ${WORK_DIR}/blocks/libdriver.so DESTINATION ${folder})
  execute_process(
    COMMAND ${CMAKE_COMMAND} -E env LD_PRELOAD=./libdriver.so ${program}
    WORKING_DIRECTORY ${folder} TIMEOUT 600 RESULT_VARIABLE result ERROR_VARIABLE said)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${program} ended with ${result}: ${said}")
  endif()
endfunction()

build(${SOURCE_DIR} ${WORK_DIR}/blocks)

# Parts of projects that the pages show find what they name.
file(GLOB parts ${BLOCKS}/cmake/*.cmake)
foreach(part IN LISTS parts)
  file(READ ${part} text)
  if(NOT text MATCHES "project\\(")
    get_filename_component(name ${part} NAME_WE)
    file(CONFIGURE OUTPUT ${WORK_DIR}/${name}/CMakeLists.txt CONTENT "cmake_minimum_required(VERSION 3.22)
project(Page LANGUAGES CXX)
add_executable(host \"${SOURCE_DIR}/driver.cpp\")
${text}" @ONLY)
    execute_process(
      COMMAND ${CMAKE_COMMAND} -S ${WORK_DIR}/${name} -B ${WORK_DIR}/${name}/build ${options}
      OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  endif()
endforeach()

# The other programs of pages, with the forms that those name.
file(WRITE ${WORK_DIR}/attenuator.zorva "<KVParamGui><Sheet name='attenuator'>
  <Widget name='attenuation' class='SpinBox'>
    <Property name='generateParameterXml'><Bool>true</Bool></Property>
  </Widget>
</Sheet></KVParamGui>")
file(GLOB programs ${BLOCKS}/programs/*.cpp)
list(FILTER programs EXCLUDE REGEX "/(README|embedding)-")
foreach(program IN LISTS programs)
  get_filename_component(name ${program} NAME_WE)
  run(${WORK_DIR}/blocks/${name} ${WORK_DIR}/attenuator.zorva)
endforeach()

# The host of the README, by the README's own command line and its own form.
set(readme ${WORK_DIR}/readme)
file(GLOB host ${BLOCKS}/programs/README-*.cpp)
file(GLOB form ${BLOCKS}/xml/README-*.xml)
configure_file(${host} ${readme}/host.cpp COPYONLY)
configure_file(${form} ${WORK_DIR}/first.zorva COPYONLY)
compile_by_page(README ${readme})
run(${readme}/host ${WORK_DIR}/first.zorva)

# The host of the page on embedding, by that page's own project and by its own line.
set(embedding ${WORK_DIR}/embedding)
file(GLOB host ${BLOCKS}/programs/embedding-*.cpp)
file(GLOB project ${BLOCKS}/cmake/embedding-*.cmake)
configure_file(${host} ${embedding}/main.cpp COPYONLY)
configure_file(${project} ${embedding}/CMakeLists.txt COPYONLY)
build(${embedding} ${embedding}/build)
run(${embedding}/build/myhost ${EXAMPLES}/receiver.zorva)
compile_by_page(embedding ${embedding})
run(${embedding}/myhost ${EXAMPLES}/receiver.zorva)
