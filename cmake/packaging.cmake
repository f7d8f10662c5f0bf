# What an installation holds; debian/ makes the package of it.
install(TARGETS quenoria RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
set(desktop ${CMAKE_SOURCE_DIR}/packaging/desktop)
set(id com.example.Quenoria)
install(FILES ${desktop}/${id}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${desktop}/${id}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${desktop}/${id}.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${desktop}/quenoria.en.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 RENAME quenoria.1)
install(FILES ${desktop}/quenoria.fr.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/fr/man1 RENAME quenoria.1)
install(FILES ${desktop}/quenoria.bash
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME quenoria)
