# What CPack makes: on Linux a Debian package, on Windows a zip.
set(CPACK_PACKAGE_VENDOR "The Vorel developers")
set(CPACK_PACKAGE_CONTACT "The Vorel developers <maintainers@vorel.example>")
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME vorel-${PROJECT_VERSION}-windows)
else()
  set(CPACK_GENERATOR DEB)
  set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
  set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
      OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/debian.cmake)
  set(CPACK_VOREL_RELEASE_DATE ${VOREL_RELEASE_DATE})
  set(CPACK_DEBIAN_PACKAGE_SECTION games)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  # A software driver, and what draws the frame of a window on Wayland.
  set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libgl1-mesa-dri, libdecor-0-plugin-1-cairo")
  set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "Vorel makes random mazes on planes, grids, hexagons, honeycombs, discs,
spheres, boxes, tori and one-sided bands, nests whole mazes in the nodes of
others, and lets you walk it all as one connected graph with a following
camera. Every corridor remembers when you last crossed it, and its colour
changes with its age. The mazes are drawn as ribbons, as balls and sticks, as
a gantry of perforated plate or as a landscape of cells, in stereo too.")
endif()
include(CPack)

if(BUILD_TESTING AND NOT WIN32)
  add_test(NAME packaging COMMAND ${PROJECT_SOURCE_DIR}/packaging/check ${PROJECT_BINARY_DIR})
endif()
