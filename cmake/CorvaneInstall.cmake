# What `cmake --install` puts where a Linux desktop looks for it. The program finds its delivered
# data at ../share/corvane beside its executable, so the two stay "bin" and "share".
install(TARGETS corvane corvane-cli RUNTIME DESTINATION bin)

install(DIRECTORY ${CORVANE_DATA_OUT}/ DESTINATION share/corvane)

set(CORVANE_DESKTOP_ID org.corvane.Corvane)
set(desktop ${PROJECT_SOURCE_DIR}/data/desktop)
install(FILES ${desktop}/${CORVANE_DESKTOP_ID}.desktop DESTINATION share/applications)
install(FILES ${desktop}/${CORVANE_DESKTOP_ID}.metainfo.xml DESTINATION share/metainfo)
install(FILES ${desktop}/${CORVANE_DESKTOP_ID}.mime.xml DESTINATION share/mime/packages
        RENAME ${CORVANE_DESKTOP_ID}.xml)
install(FILES ${desktop}/corvane.svg DESTINATION share/icons/hicolor/scalable/apps
        RENAME ${CORVANE_DESKTOP_ID}.svg)
foreach(size 16 32 48 256)
  install(FILES ${desktop}/icons/corvane-${size}.png DESTINATION share/icons/hicolor/${size}x${size}/apps
          RENAME ${CORVANE_DESKTOP_ID}.png)
endforeach()

# The documents: the manual page, the copyright notice and the change log, compressed as Debian
# wants them (gzip -n, so that the same sources give the same package).
set(CORVANE_CHANGELOG_DATE "Mon, 23 Nov 2026 12:00:00 +0000")
configure_file(${desktop}/changelog.in ${CMAKE_BINARY_DIR}/doc/changelog @ONLY)
find_program(GZIP_PROGRAM gzip REQUIRED)
add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/doc/changelog.gz ${CMAKE_BINARY_DIR}/doc/corvane.1.gz
                          ${CMAKE_BINARY_DIR}/doc/corvane-cli.1.gz
  COMMAND ${GZIP_PROGRAM} -n -9 -c ${CMAKE_BINARY_DIR}/doc/changelog > ${CMAKE_BINARY_DIR}/doc/changelog.gz
  COMMAND ${GZIP_PROGRAM} -n -9 -c ${desktop}/corvane.1 > ${CMAKE_BINARY_DIR}/doc/corvane.1.gz
  COMMAND ${GZIP_PROGRAM} -n -9 -c ${desktop}/corvane-cli.1 > ${CMAKE_BINARY_DIR}/doc/corvane-cli.1.gz
  DEPENDS ${CMAKE_BINARY_DIR}/doc/changelog ${desktop}/corvane.1 ${desktop}/corvane-cli.1)
add_custom_target(corvane_docs ALL DEPENDS ${CMAKE_BINARY_DIR}/doc/changelog.gz ${CMAKE_BINARY_DIR}/doc/corvane.1.gz
                                           ${CMAKE_BINARY_DIR}/doc/corvane-cli.1.gz)
install(FILES ${desktop}/copyright ${CMAKE_BINARY_DIR}/doc/changelog.gz DESTINATION share/doc/corvane)
install(FILES ${CMAKE_BINARY_DIR}/doc/corvane.1.gz ${CMAKE_BINARY_DIR}/doc/corvane-cli.1.gz DESTINATION share/man/man1)
