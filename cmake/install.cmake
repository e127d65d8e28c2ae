# What "cmake --install" puts where.
if(WIN32) # one folder, packed as it is
  install(TARGETS vorel DESTINATION .)
  return()
endif()

include(GNUInstallDirs)
set(linux ${PROJECT_SOURCE_DIR}/packaging/linux)
set(program_folder ${CMAKE_INSTALL_LIBEXECDIR}/vorel)
install(TARGETS vorel DESTINATION ${program_folder})

# The launcher finds the program relative to itself, so that the installed tree can be moved.
file(RELATIVE_PATH VOREL_FROM_BIN ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBEXECDIR}/vorel)
configure_file(${linux}/vorel.in launcher/vorel @ONLY)
install(PROGRAMS ${PROJECT_BINARY_DIR}/launcher/vorel TYPE BIN)

install(FILES ${linux}/vorel.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
