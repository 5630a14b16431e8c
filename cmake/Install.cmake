# `make install` and `make package`: the program, its desktop entry, icon, AppStream metadata, manual
# page and shell completions, under CMAKE_INSTALL_PREFIX (and DESTDIR when set); CPack makes a Debian
# package of the same files, its dependencies computed from the libraries the program links.
include(GNUInstallDirs)

set(VANTRELLE_APP_ID com.quorvane.vantrelle)
string(TIMESTAMP VANTRELLE_RELEASE_DATE "%Y-%m-%d" UTC)
configure_file(${PROJECT_SOURCE_DIR}/packaging/${VANTRELLE_APP_ID}.metainfo.xml.in
               ${PROJECT_BINARY_DIR}/packaging/${VANTRELLE_APP_ID}.metainfo.xml @ONLY)

install(TARGETS vantrelle RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS vantrelle_shell RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/vantrelle)
install(FILES packaging/${VANTRELLE_APP_ID}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/${VANTRELLE_APP_ID}.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${PROJECT_BINARY_DIR}/packaging/${VANTRELLE_APP_ID}.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES packaging/vantrelle.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES packaging/vantrelle.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        RENAME vantrelle)
install(FILES packaging/_vantrelle DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vantrelle)
set(CPACK_PACKAGE_VENDOR Quorvane)
set(CPACK_PACKAGE_CONTACT "Vantrelle <support@vantrelle.app>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Notch dashboard for people who work with AI coding agents")
set(CPACK_PACKAGE_DESCRIPTION
    "A hover panel at the top centre of the screen with the AI agents' usage and costs, a calculator, \
calendar, tasks, notes, a focus timer and more, and one live activity beside the notch.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# QML modules and the icon font are loaded at run time, so no library link names them. Without the font
# every glyph shows as an empty box (seen on a fresh Debian 12).
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "qml6-module-qtquick, qml6-module-qtquick-window, qml6-module-qtqml-workerscript, \
qml6-module-qtquick-controls, qml6-module-qtquick-templates, qml6-module-qtmultimedia, \
fonts-material-design-icons-iconfont")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, sound-theme-freedesktop")
include(CPack)
