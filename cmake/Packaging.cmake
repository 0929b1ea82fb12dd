# What is installed where, and the Debian package made of it. The programs lie together in a folder of their own,
# where Fennick looks for the three that it starts; links make them commands.
if(CMAKE_INSTALL_PREFIX_INITIALIZED_TO_DEFAULT)
  set(CMAKE_INSTALL_PREFIX /usr CACHE PATH "Where the programs are installed" FORCE)
endif()
include(GNUInstallDirs)

set(FENNICK_PROGRAMS ${CMAKE_INSTALL_LIBEXECDIR}/fennick)
install(TARGETS fennick fennick-engine convert_receipt make_report RUNTIME DESTINATION ${FENNICK_PROGRAMS})
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/links)
foreach(program fennick fennick-engine)
  file(CREATE_LINK ../${FENNICK_PROGRAMS}/${program} ${CMAKE_BINARY_DIR}/links/${program} SYMBOLIC)
  install(FILES ${CMAKE_BINARY_DIR}/links/${program} DESTINATION ${CMAKE_INSTALL_BINDIR})
endforeach()

set(FENNICK_PACKAGING ${CMAKE_SOURCE_DIR}/packaging)
install(FILES ${FENNICK_PACKAGING}/org.fennick.Fennick.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${FENNICK_PACKAGING}/org.fennick.Fennick.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
configure_file(${FENNICK_PACKAGING}/org.fennick.Fennick.service.in
               ${CMAKE_BINARY_DIR}/org.fennick.Fennick.service @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/org.fennick.Fennick.service
        DESTINATION ${CMAKE_INSTALL_DATADIR}/dbus-1/services)
set(FENNICK_ICONS ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(
  FILES ${CMAKE_SOURCE_DIR}/src/ui/symbols/fennick.svg
  DESTINATION ${FENNICK_ICONS}/scalable/apps
  RENAME org.fennick.Fennick.svg)
install(FILES ${FENNICK_PACKAGING}/org.fennick.Fennick-symbolic.svg
        DESTINATION ${FENNICK_ICONS}/symbolic/apps)

# fennick_compressed(<file> <name> <destination>): Debian wants manual pages and changelogs compressed, the same bytes
# for the same text.
function(fennick_compressed file name destination)
  set(compressed ${CMAKE_BINARY_DIR}/compressed/${name})
  file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/compressed)
  execute_process(COMMAND gzip -9 -n -c ${file} OUTPUT_FILE ${compressed} COMMAND_ERROR_IS_FATAL ANY)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
  install(FILES ${compressed} DESTINATION ${destination})
endfunction()
fennick_compressed(${FENNICK_PACKAGING}/fennick.1 fennick.1.gz ${CMAKE_INSTALL_MANDIR}/man1)
fennick_compressed(${FENNICK_PACKAGING}/fennick-engine.1 fennick-engine.1.gz ${CMAKE_INSTALL_MANDIR}/man1)
set(FENNICK_DOCUMENTS ${CMAKE_INSTALL_DATADIR}/doc/fennick)
fennick_compressed(${CMAKE_SOURCE_DIR}/CHANGELOG.md changelog.gz ${FENNICK_DOCUMENTS})
fennick_compressed(${FENNICK_PACKAGING}/debian/changelog changelog.Debian.gz ${FENNICK_DOCUMENTS})
install(FILES ${FENNICK_PACKAGING}/debian/copyright DESTINATION ${FENNICK_DOCUMENTS})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME fennick)
set(CPACK_PACKAGE_VENDOR "The Fennick developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "turn receipts into an expense list")
set(CPACK_PACKAGE_DESCRIPTION
    "Fennick watches a folder: every receipt PDF or photo that lands in it is read,
renamed after what it says, listed with date, amount, place, category and
summary, and put into a dated album of the photo library. It is read by
Google's Gemini service or by an engine on the machine itself.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# A package fits the release it was built on. The newer release's is the newer version, so that an upgrade of the system
# replaces it.
cmake_host_system_information(RESULT FENNICK_RELEASE QUERY DISTRIB_VERSION_ID)
set(CPACK_DEBIAN_PACKAGE_RELEASE "1~deb${FENNICK_RELEASE}")
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The Fennick developers <developers@fennick.org>")
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Not linked, but looked for when the program runs: whom to trust on the network, the readers of WebP pictures, and
# the data of the engine.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "ca-certificates, qt6-image-formats-plugins, tesseract-ocr-eng")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "gnome-keyring | kwalletmanager | keepassxc, qt6-wayland, qt6-gtk-platformtheme, qt6-translations-l10n, xdg-utils")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
include(CPack)
