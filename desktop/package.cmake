# The files to install on Linux, and the Debian package. All are named by the application id.
set(ID net.nimbusturnpost.Turnpost)
set(TURNPOST_RELEASE_DATE 2026-11-23)
include(GNUInstallDirs)
install(TARGETS turnpost RUNTIME)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/${ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
configure_file(${CMAKE_CURRENT_LIST_DIR}/${ID}.metainfo.xml.in ${DESKTOP}/${ID}.metainfo.xml @ONLY)
install(FILES ${DESKTOP}/${ID}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
configure_file(${CMAKE_CURRENT_LIST_DIR}/turnpost.1.in ${DESKTOP}/turnpost.1 @ONLY)

set(ICON_THEME ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES ${drawing} DESTINATION ${ICON_THEME}/scalable/apps RENAME ${ID}.svg)
foreach(size 16 24 32 48 64 128 256)
  install(FILES ${DESKTOP}/turnpost-${size}.png
    DESTINATION ${ICON_THEME}/${size}x${size}/apps RENAME ${ID}.png)
endforeach()

# Debian wants these texts compressed, without a time stamp.
find_program(GZIP gzip REQUIRED)
configure_file(${CMAKE_CURRENT_LIST_DIR}/changelog.in ${DESKTOP}/changelog @ONLY)
foreach(text turnpost.1 changelog)
  add_custom_command(OUTPUT ${DESKTOP}/${text}.gz DEPENDS ${DESKTOP}/${text} VERBATIM
    COMMAND ${GZIP} -9nkf ${DESKTOP}/${text})
endforeach()
add_custom_target(packed_texts ALL DEPENDS ${DESKTOP}/turnpost.1.gz ${DESKTOP}/changelog.gz)
install(FILES ${DESKTOP}/turnpost.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
set(DOC ${CMAKE_INSTALL_DATADIR}/doc/nimbus-turnpost)
install(FILES ${DESKTOP}/changelog.gz DESTINATION ${DOC})
install(FILES ${CMAKE_SOURCE_DIR}/NOTICES.md DESTINATION ${DOC} RENAME copyright)

set(CPACK_PACKAGE_NAME nimbus-turnpost)
set(CPACK_PACKAGE_CONTACT "Nimbus Turnpost maintainers <turnpost@nimbusturnpost.net>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "mail every player of a Stars! game that player's turn file")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"A window for the host of a play-by-e-mail game: each turn it mails every
player that player's turn file, by its own SMTP client or through the
machine's mail system, and then says player by player what was sent and why
anything was not.")
set(CPACK_GENERATOR DEB)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION mail)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "default-mta | mail-transport-agent")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
include(CPack)
