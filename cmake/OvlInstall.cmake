# What `cmake --install` lays down: libraries, public headers, and the files by which CMake and
# pkg-config find them. None of them names a folder of this machine: the whole may be moved.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(OVL_QT_VERSION 5.15)
set(ovl_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/ovl)
set(ovl_pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# ovl_install_library(<target> <export set> <folder of its headers> <header> ...)
function(ovl_install_library target export folder)
  if(NOT OVL_INSTALL)
    return()
  endif()
  install(TARGETS ${target} EXPORT ${export}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
  install(EXPORT ${export} NAMESPACE ovl:: DESTINATION ${ovl_cmake_dir} COMPONENT development)
  install(FILES ${ARGN} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ovl/${folder} COMPONENT development)
  # Where the framework does not lie among the system's libraries, the library tells the loader.
  set_target_properties(${target} PROPERTIES INSTALL_RPATH_USE_LINK_PATH ON)
endfunction()

function(ovl_install_finders)
  configure_package_config_file(cmake/ovlConfig.cmake.in ovlConfig.cmake
    INSTALL_DESTINATION ${ovl_cmake_dir}
    NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
  write_basic_package_version_file(ovlConfigVersion.cmake COMPATIBILITY SameMajorVersion)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ovlConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/ovlConfigVersion.cmake
    DESTINATION ${ovl_cmake_dir} COMPONENT development)

  # The way back from the .pc file to the prefix, wherever that lies.
  file(RELATIVE_PATH up /prefix/${ovl_pkgconfig_dir} /prefix)
  string(REGEX REPLACE "/$" "" OVL_PC_PREFIX "\${pcfiledir}/${up}")
  foreach(name IN ITEMS ovl ovl-hosting)
    configure_file(cmake/${name}.pc.in ${name}.pc @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc
      DESTINATION ${ovl_pkgconfig_dir} COMPONENT development)
  endforeach()
endfunction()
