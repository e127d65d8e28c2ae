# What "cmake --install" puts where.

# The day of this version, from the headings of the change log: "## VERSION, DAY".
file(STRINGS CHANGELOG.md VOREL_RELEASE_DATE REGEX "^## ${PROJECT_VERSION}, ")
string(REGEX REPLACE ".*, " "" VOREL_RELEASE_DATE "${VOREL_RELEASE_DATE}")
file(READ LICENSE licence)
file(READ docs/licences/dejavu-fonts.txt font_licence)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS CHANGELOG.md LICENSE README.md)

# The installed README leaves out what needs the sources: how to install, build and develop.
file(READ README.md readme)
string(REGEX REPLACE "## Install a package\n.*\n## Play\n" "## Play\n" readme "${readme}")
string(REGEX REPLACE "## For developers\n.*\n<!-- end of figures -->\n\n" "" readme "${readme}")

if(WIN32) # one folder, which is packed as it is
  string(REGEX REPLACE "!\\[[^\n]*\n\n" "" readme "${readme}") # no pictures
  file(CONFIGURE OUTPUT README.txt CONTENT "${readme}" @ONLY NEWLINE_STYLE CRLF)
  file(CONFIGURE OUTPUT LICENSE.txt CONTENT "${licence}\n${font_licence}" @ONLY NEWLINE_STYLE CRLF)
  install(TARGETS vorel vorel-maze DESTINATION .)
  install(FILES ${PROJECT_BINARY_DIR}/README.txt ${PROJECT_BINARY_DIR}/LICENSE.txt DESTINATION .)
  return()
endif()

include(GNUInstallDirs)
set(linux ${PROJECT_SOURCE_DIR}/packaging/linux)
install(TARGETS vorel DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/vorel)

# The launcher finds the program relative to itself, so that the installed tree can be moved.
file(RELATIVE_PATH VOREL_FROM_BIN ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBEXECDIR}/vorel)
configure_file(${linux}/vorel.in launcher/vorel @ONLY)
install(PROGRAMS ${PROJECT_BINARY_DIR}/launcher/vorel TYPE BIN)
install(TARGETS vorel-maze)

set(share ${CMAKE_INSTALL_DATADIR})
install(FILES ${linux}/vorel.desktop DESTINATION ${share}/applications)
install(FILES ${linux}/example.vorel.vorel.metainfo.xml DESTINATION ${share}/metainfo)
install(FILES packaging/vorel.svg DESTINATION ${share}/icons/hicolor/scalable/apps)
foreach(size 16 24 32 48 64 128 256)
  install(FILES packaging/icons/vorel-${size}.png RENAME vorel.png
          DESTINATION ${share}/icons/hicolor/${size}x${size}/apps)
endforeach()
foreach(page vorel.6 vorel-maze.6)
  configure_file(${linux}/${page}.in ${page} @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man6)
endforeach()
file(CONFIGURE OUTPUT copyright CONTENT "${licence}\n${font_licence}" @ONLY)
file(CONFIGURE OUTPUT documents/README.md CONTENT "${readme}" @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/documents/README.md CHANGELOG.md ${PROJECT_BINARY_DIR}/copyright TYPE DOC)
install(DIRECTORY docs/pictures DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs)
