# What an installation holds. The program finds its files by MERLU_DATA_DIR.
set(MERLU_ICON_SIZES 16 24 32 48 64 128 256)
install(TARGETS merlu RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${CMAKE_BINARY_DIR}/mr.dbt DESTINATION ${MERLU_DATA_DIR})

install(FILES ${help_files} DESTINATION ${MERLU_DATA_DIR})

set(desktop_files ${CMAKE_SOURCE_DIR}/data/desktop)
install(FILES ${desktop_files}/merlu.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${desktop_files}/merlu.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${desktop_files}/merlu.mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages RENAME merlu.xml)
foreach(size ${MERLU_ICON_SIZES})
  install(FILES ${CMAKE_SOURCE_DIR}/data/icons/${size}/merlu.png
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endforeach()
install(FILES ${CMAKE_SOURCE_DIR}/data/icons/merlu.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

set(doc_dir ${CMAKE_INSTALL_DATADIR}/doc/merlu)
install(FILES ${desktop_files}/copyright DESTINATION ${doc_dir})
install(DIRECTORY ${CMAKE_SOURCE_DIR}/examples DESTINATION ${doc_dir} FILES_MATCHING PATTERN "*.merlu")
install(DIRECTORY ${CMAKE_SOURCE_DIR}/examples DESTINATION ${doc_dir} USE_SOURCE_PERMISSIONS
  FILES_MATCHING PATTERN "*.sh")

# ---- compressed, as Debian keeps them ----
configure_file(${desktop_files}/merlu.1.in ${CMAKE_BINARY_DIR}/manual/merlu.1.in @ONLY)
add_executable(make_manual tools/make_manual.cpp)
target_link_libraries(make_manual PRIVATE merlu_command merlu_options)
add_custom_command(
  OUTPUT ${CMAKE_BINARY_DIR}/manual/merlu.1 ${CMAKE_BINARY_DIR}/manual/merlu.bash
  COMMAND make_manual ${CMAKE_BINARY_DIR}/manual/merlu.1.in ${CMAKE_BINARY_DIR}/manual/merlu.1
          ${CMAKE_BINARY_DIR}/manual/merlu.bash
  DEPENDS make_manual ${CMAKE_BINARY_DIR}/manual/merlu.1.in
  VERBATIM)
function(merlu_compress from to)
  add_custom_command(OUTPUT ${to} COMMAND gzip -9nc ${from} > ${to} DEPENDS ${from} VERBATIM)
endfunction()
merlu_compress(${CMAKE_BINARY_DIR}/manual/merlu.1 ${CMAKE_BINARY_DIR}/manual/merlu.1.gz)
merlu_compress(${desktop_files}/changelog ${CMAKE_BINARY_DIR}/manual/changelog.gz)
add_custom_target(manual ALL DEPENDS ${CMAKE_BINARY_DIR}/manual/merlu.1.gz ${CMAKE_BINARY_DIR}/manual/changelog.gz)
install(FILES ${CMAKE_BINARY_DIR}/manual/merlu.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${CMAKE_BINARY_DIR}/manual/merlu.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions
  RENAME merlu)
install(FILES ${CMAKE_BINARY_DIR}/manual/changelog.gz DESTINATION ${doc_dir})
