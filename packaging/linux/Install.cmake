# Where the program and what belongs to it are installed, and the Debian package made of that.

include(GNUInstallDirs)

set(QUILLARY_BUILD_NUMBER 1 CACHE STRING "Number of the build; the package's revision")
set(QUILLARY_RELEASE_DATE 2026-11-20)
set(QUILLARY_CHANGELOG_DATE "Fri, 20 Nov 2026 12:00:00 +0000")
set(QUILLARY_MAINTAINER "The Quillary developers <developers@quillary.org>")

set(source ${CMAKE_CURRENT_LIST_DIR})
set(made ${PROJECT_BINARY_DIR}/packaging)

# Manual pages and changelogs are installed compressed, without the name and the time of what was compressed.
function(quillary_compress from to)
  execute_process(COMMAND gzip -9n -c ${from} OUTPUT_FILE ${to} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

configure_file(${source}/bundle.json.in ${made}/bundle.json @ONLY)
configure_file(${source}/org.quillary.Quillary.metainfo.xml ${made}/org.quillary.Quillary.metainfo.xml @ONLY)
configure_file(${source}/quillary.1 ${made}/quillary.1 @ONLY)
configure_file(${source}/debian/changelog.in ${made}/changelog @ONLY)
quillary_compress(${made}/quillary.1 ${made}/quillary.1.gz)
quillary_compress(${made}/changelog ${made}/changelog.Debian.gz)

install(TARGETS quillary RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${source}/quillary.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/quillary.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${made}/org.quillary.Quillary.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${made}/quillary.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
# The program looks for it beside its own folder.
install(FILES ${made}/bundle.json DESTINATION ${CMAKE_INSTALL_DATADIR}/quillary)
install(FILES ${source}/debian/copyright ${made}/changelog.Debian.gz DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/quillary)
install(FILES ${source}/debian/lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides
        RENAME quillary)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillary)
set(CPACK_PACKAGE_VENDOR "The Quillary developers")
set(CPACK_PACKAGE_CONTACT ${QUILLARY_MAINTAINER})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "dock on every screen")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Quillary gives every connected screen a dock of its own: a panel at one edge
with the user's applications, folders and files, and the applications that run.

Icons grow under the pointer and hop while their application starts; docks hide
until their edge is touched, take dropped files, and show which application
eats the memory. There are five styles, and one settings window.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${QUILLARY_BUILD_NUMBER})
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION x11)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Icon themes are drawn in SVG by a plugin, which no library's name asks for.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6svg6")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "hicolor-icon-theme, default-dbus-session-bus | dbus-session-bus")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
