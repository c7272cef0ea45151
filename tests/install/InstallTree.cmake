# Installs the build into an empty PREFIX, and each component by itself into
# COMPONENTS_DIR/<component>.
file(REMOVE_RECURSE ${PREFIX} ${COMPONENTS_DIR})
execute_process(
  COMMAND ${CMAKE_COMMAND} --install ${BINARY_DIR} --prefix ${PREFIX}
  OUTPUT_QUIET
  COMMAND_ERROR_IS_FATAL ANY)

# expect(<component> <file>...): each is installed by that component, and so by the whole.
function(expect component)
  execute_process(
    COMMAND ${CMAKE_COMMAND} --install ${BINARY_DIR} --prefix ${COMPONENTS_DIR}/${component}
      --component ${component}
    OUTPUT_QUIET
    COMMAND_ERROR_IS_FATAL ANY)
  foreach(file IN LISTS ARGN)
    foreach(root ${PREFIX} ${COMPONENTS_DIR}/${component})
      if(NOT EXISTS ${root}/${file} AND NOT IS_SYMLINK ${root}/${file})
        message(SEND_ERROR "${file} is not in ${root}")
      endif()
    endforeach()
  endforeach()
endfunction()

expect(Runtime
  ${LIBDIR}/libzorvaparser.so.1
  ${LIBDIR}/libvkbase.so.1
  share/zorvaparser-1/translations/ZorvaParser_de.qm
  share/zorvaparser-1/translations/ZorvaParser_fr.qm)
expect(Development
  ${LIBDIR}/libzorvaparser.so
  ${LIBDIR}/cmake/ZorvaParser/ZorvaParserConfig.cmake
  ${LIBDIR}/cmake/ZorvaParser/ZorvaParserTargets.cmake
  ${LIBDIR}/pkgconfig/zorvaparser.pc
  ${LIBDIR}/pkgconfig/zorvaparser-hostkit.pc
  ${INCLUDEDIR}/zorvaparser/zorvaformular.h
  ${INCLUDEDIR}/zorvaparser/zorvaparser_export.h
  ${INCLUDEDIR}/layout/floatgrouplayout.h
  ${INCLUDEDIR}/valueframework/tree.h)
expect(Tools
  bin/zorva
  share/zorvaparser/zorva.rng
  bin/zorvashell
  share/applications/zorvashell.desktop
  share/applications/zorva-preview.desktop
  share/mime/packages/zorvaparser.xml
  share/org.kde.syntax-highlighting/syntax/zorva.xml
  share/icons/hicolor/scalable/apps/zorvashell.svg
  share/icons/hicolor/scalable/mimetypes/application-x-zorva+xml.svg)
expect(Documentation
  ${DOCDIR}/README.md
  ${DOCDIR}/docs/embedding.md
  share/zorvaparser/examples/receiver.zorva)

# Together the components are the whole, and no file belongs to two of them.
file(GLOB_RECURSE whole LIST_DIRECTORIES false RELATIVE ${PREFIX} ${PREFIX}/*)
set(parts "")
foreach(component Runtime Development Tools Documentation)
  file(GLOB_RECURSE part LIST_DIRECTORIES false
    RELATIVE ${COMPONENTS_DIR}/${component} ${COMPONENTS_DIR}/${component}/*)
  list(APPEND parts ${part})
endforeach()
list(SORT whole)
list(SORT parts)
if(NOT whole STREQUAL parts)
  message(SEND_ERROR "the components are not the whole:\n${parts}\n${whole}")
endif()

# A program has a man page and a completion.
file(GLOB programs RELATIVE ${PREFIX}/bin ${PREFIX}/bin/*)
foreach(program IN LISTS programs)
  foreach(file share/man/man1/${program}.1 share/bash-completion/completions/${program})
    if(NOT EXISTS ${PREFIX}/${file})
      message(SEND_ERROR "${program} has no ${file}")
    endif()
  endforeach()
endforeach()

file(GLOB_RECURSE private_headers ${PREFIX}/*_p.h)
if(private_headers)
  message(SEND_ERROR "private headers are installed: ${private_headers}")
endif()
