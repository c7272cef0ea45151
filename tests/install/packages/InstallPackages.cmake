# Installs PACKAGES into an empty ROOT, runs the shell and a host there, and
# removes them; nothing may be left behind.
file(REMOVE_RECURSE ${ROOT})
file(MAKE_DIRECTORY ${ROOT}/var/lib/dpkg/info ${ROOT}/var/lib/dpkg/updates ${ROOT}/var/log)
file(WRITE ${ROOT}/var/lib/dpkg/status "")
file(GLOB packages ${PACKAGES}/*.deb)

# Where dpkg looks for ldconfig, and an ordinary user does not.
set(ENV{PATH} "$ENV{PATH}:/usr/sbin:/sbin")

# What the packages depend on is that of the system around the root.
function(dpkg)
  execute_process(
    COMMAND ${FAKEROOT} dpkg --root=${ROOT} --force-not-root --force-depends
      --force-script-chrootless ${ARGN}
    OUTPUT_QUIET ERROR_VARIABLE said RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "dpkg ${ARGN} ended with ${result}: ${said}")
  endif()
endfunction()

dpkg(--install ${packages})
set(ENV{LD_LIBRARY_PATH} ${ROOT}/usr/${LIBDIR})
set(ENV{QT_QPA_PLATFORM} offscreen)
set(PREFIX ${ROOT}/usr)
set(FORM ${TESTS}/data/shell/no-form.zorva)
include(${TESTS}/install/RunShell.cmake)
set(SOURCE_DIR ${TESTS}/install/consumer)
set(WAY cmake)
include(${TESTS}/install/BuildConsumer.cmake)

dpkg(--purge zorva-tools zorvaparser-doc libzorvaparser-dev libzorvaparser1)
file(GLOB_RECURSE rest LIST_DIRECTORIES true RELATIVE ${ROOT} ${ROOT}/*)
list(FILTER rest EXCLUDE REGEX "^var(/|$)")
if(rest)
  message(FATAL_ERROR "left behind: ${rest}")
endif()
