# Two Debian packages, made by CPack: libovl1, what programs run with, and libovl-dev, what they are
# built with. scripts/package makes and checks them. Their layout is Debian's where the prefix is /usr.
# Lower than any revision that Debian might give it one day.
set(ovl_debian_revision 0ovl1)
set(OVL_DEBIAN_VERSION ${PROJECT_VERSION}-${ovl_debian_revision})
set(OVL_DEBIAN_CONTACT maintainers@ovl.example)
set(ovl_debian_runtime libovl${PROJECT_VERSION_MAJOR})
set(ovl_debian_folder ${PROJECT_SOURCE_DIR}/cmake/debian)
set(ovl_debian_made ${PROJECT_BINARY_DIR}/debian)

# ovl_debian_compress(<file> <name>): the file as <name>.gz, the same at every time of day.
function(ovl_debian_compress file name)
  execute_process(COMMAND gzip -9 -n -c ${file} OUTPUT_FILE ${ovl_debian_made}/${name}.gz)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
endfunction()

configure_file(${ovl_debian_folder}/changelog.in ${ovl_debian_made}/changelog @ONLY)
configure_file(${ovl_debian_folder}/shlibs.in ${ovl_debian_made}/shlibs @ONLY)
configure_file(${ovl_debian_folder}/triggers ${ovl_debian_made}/triggers COPYONLY)
ovl_debian_compress(${ovl_debian_made}/changelog changelog.Debian)
ovl_debian_compress(${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog)

# Not part of an installation, which takes all components at once and leaves out what is marked so.
install(FILES ${ovl_debian_folder}/copyright ${ovl_debian_made}/changelog.Debian.gz
  ${ovl_debian_made}/changelog.gz
  DESTINATION share/doc/${ovl_debian_runtime} COMPONENT runtime EXCLUDE_FROM_ALL)
install(FILES ${ovl_debian_folder}/copyright ${ovl_debian_made}/changelog.Debian.gz
  ${ovl_debian_made}/changelog.gz
  DESTINATION share/doc/libovl-dev COMPONENT development EXCLUDE_FROM_ALL)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples
  DESTINATION share/doc/libovl-dev COMPONENT development EXCLUDE_FROM_ALL)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ovl)
set(CPACK_PACKAGE_VENDOR "the ovl maintainers")
set(CPACK_PACKAGE_CONTACT "ovl maintainers <${OVL_DEBIAN_CONTACT}>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_NAME} built using CMake") # each package has its own
set(CPACK_POST_BUILD_SCRIPTS ${ovl_debian_folder}/finish.cmake)
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_DEB_COMPONENT_INSTALL ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_DEBIAN_PACKAGE_RELEASE ${ovl_debian_revision})
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/visualization)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${ovl_debian_runtime})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA
  ${ovl_debian_made}/shlibs ${ovl_debian_made}/triggers)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "interactive views of imaging data - shared libraries
Views for Qt programs that show what a camera or a scanner measures: images
of 8 to 32 bits, profiles with shapes to grab, point clouds and surfaces.
The user pans, zooms and turns them; the program decides when to repaint.
.
This package is what programs need to run.")

# Qt for the public headers. VTK only for programs that have VTK widgets of their own.
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libovl-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "${ovl_debian_runtime} (= ${OVL_DEBIAN_VERSION}), qtbase5-dev (>= ${OVL_QT_VERSION})")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "cmake, libvtk9-qt-dev, pkg-config")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "interactive views of imaging data - development files
Views for Qt programs that show what a camera or a scanner measures: images
of 8 to 32 bits, profiles with shapes to grab, point clouds and surfaces.
The user pans, zooms and turns them; the program decides when to repaint.
.
This package is what programs are built with: headers, files for CMake and
pkg-config, and in /usr/share/doc/libovl-dev/examples a small project for
each task.")

include(CPack)
