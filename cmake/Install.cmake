# What `cmake --install` puts under the prefix. The program looks for its pictures in ../share/vastrel.
include(GNUInstallDirs)
set(vastrelData ${CMAKE_INSTALL_DATADIR}/vastrel)
set(man ${CMAKE_INSTALL_MANDIR}/man1)
set(made ${CMAKE_BINARY_DIR}/packaging) # by the target "companions", as ./run does

install(TARGETS vastrel-batch RUNTIME)
install(DIRECTORY samples DESTINATION ${vastrelData} FILES_MATCHING PATTERN "*.txt" PATTERN "*.md" PATTERN "*.csm"
        PATTERN "country.*" PATTERN "__pycache__" EXCLUDE)
install(DIRECTORY samples/watch samples/cluster DESTINATION ${vastrelData}/samples USE_SOURCE_PERMISSIONS)
install(FILES LICENSE README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES ${made}/man/vastrel-batch.1 DESTINATION ${man} OPTIONAL)
install(FILES ${made}/man/vastrel-batch.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
        RENAME vastrel-batch OPTIONAL)

if(VASTREL_SCREENS)
  set(id org.vastrel.Vastrel)
  set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
  install(TARGETS vastrel RUNTIME)
  install(DIRECTORY BitMaps DESTINATION ${vastrelData} FILES_MATCHING PATTERN "*.jpg" PATTERN sources EXCLUDE)
  install(FILES packaging/man/vastrel.1 DESTINATION ${man})
  install(FILES ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/UserManual.pdf DESTINATION ${CMAKE_INSTALL_DOCDIR} OPTIONAL)
  install(FILES packaging/desktop/${id}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES packaging/desktop/${id}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES packaging/desktop/${id}.svg DESTINATION ${icons}/scalable/apps)
  install(FILES packaging/desktop/${id}-symbolic.svg DESTINATION ${icons}/symbolic/apps)
  foreach(size ${iconSizes})
    install(FILES ${made}/desktop/${size}/${id}.png DESTINATION ${icons}/${size}x${size}/apps OPTIONAL)
  endforeach()
endif()
