# What `cmake --install` puts under the prefix. The program looks for its pictures in ../share/vastrel.
include(GNUInstallDirs)
set(vastrelData ${CMAKE_INSTALL_DATADIR}/vastrel)

install(TARGETS vastrel-batch RUNTIME)
install(DIRECTORY samples DESTINATION ${vastrelData} FILES_MATCHING PATTERN "*.txt" PATTERN "*.md" PATTERN "country.*")
install(DIRECTORY samples/watch DESTINATION ${vastrelData}/samples USE_SOURCE_PERMISSIONS)
install(FILES LICENSE README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR})
# Made by the target "manual", as ./run does.
install(FILES ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/UserManual.pdf DESTINATION ${CMAKE_INSTALL_DOCDIR} OPTIONAL)

if(VASTREL_SCREENS)
  install(TARGETS vastrel RUNTIME)
  install(DIRECTORY BitMaps DESTINATION ${vastrelData} FILES_MATCHING PATTERN "*.jpg" PATTERN sources EXCLUDE)
  install(FILES packaging/vastrel.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES packaging/vastrel.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
  install(FILES packaging/org.vastrel.Vastrel.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
endif()
