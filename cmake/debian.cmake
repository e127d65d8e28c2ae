# Runs after CPack has installed the files of a package and before it packs them: makes them what
# Debian's policy asks for.
if(NOT CPACK_GENERATOR STREQUAL "DEB")
  return()
endif()
set(usr ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr)
file(RENAME ${usr}/bin ${usr}/games)

set(changelog ${usr}/share/doc/vorel/changelog)
execute_process(COMMAND date --utc --rfc-email --date ${CPACK_VOREL_RELEASE_DATE}
                OUTPUT_VARIABLE date COMMAND_ERROR_IS_FATAL ANY)
file(WRITE ${changelog} "vorel (${CPACK_PACKAGE_VERSION}) stable; urgency=medium

  * New version; CHANGELOG.md lists the changes.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}")
file(GLOB pages ${usr}/share/man/man6/*)
execute_process(COMMAND gzip -9n ${changelog} ${pages} COMMAND_ERROR_IS_FATAL ANY)
