# Run by CPack on the packages that it has made, for what it cannot say: that both may be installed for
# several architectures at once, and that the trigger does what its maintainer scripts do.
foreach(package IN LISTS CPACK_PACKAGE_FILES)
  set(tree "${package}.tree")
  execute_process(COMMAND dpkg-deb -R "${package}" "${tree}" COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE "${tree}/DEBIAN/postinst" "${tree}/DEBIAN/postrm")
  file(READ "${tree}/DEBIAN/control" control)
  string(REGEX REPLACE "\nPriority:" "\nMulti-Arch: same\nPriority:" control "${control}")
  string(REGEX REPLACE "\n+$" "\n" control "${control}")
  file(WRITE "${tree}/DEBIAN/control" "${control}")
  execute_process(COMMAND dpkg-deb --root-owner-group -b "${tree}" "${package}"
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE_RECURSE "${tree}")
endforeach()
