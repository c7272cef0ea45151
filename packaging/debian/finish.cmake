# Run by cpack behind the making of the packages: takes out the scripts that
# it adds to call ldconfig, which dpkg does by the trigger, and packs again
# as dpkg does, with the times of the release.
foreach(package IN LISTS CPACK_PACKAGE_FILES)
  set(root ${CPACK_TEMPORARY_DIRECTORY}/again)
  file(REMOVE_RECURSE ${root})
  execute_process(COMMAND dpkg-deb -R ${package} ${root} COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE ${root}/DEBIAN/postinst ${root}/DEBIAN/postrm)
  execute_process(
    COMMAND dpkg-deb --root-owner-group -b ${root} ${package}
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endforeach()
