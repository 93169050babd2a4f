# cmake --install BUILD [--prefix FOLDER]: the program, the folder it runs in, a launcher and a desktop entry.
include(GNUInstallDirs)

set(nestrix_program_folder ${CMAKE_INSTALL_LIBEXECDIR}/nestrix)
set(nestrix_data_folder ${CMAKE_INSTALL_DATADIR}/nestrix)

install(TARGETS nestrix RUNTIME DESTINATION ${nestrix_program_folder})
install(FILES ${PROJECT_SOURCE_DIR}/src/app/Nestrix_wdr.xrc DESTINATION ${nestrix_data_folder})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/samples DESTINATION ${nestrix_data_folder}
    FILES_MATCHING PATTERN "*.pol")

# The font stays where the system has it.
install(CODE "
    set(link \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${nestrix_data_folder}/arial.ttf\")
    file(CREATE_LINK \"${NESTRIX_FONT}\" \"\${link}\" SYMBOLIC)")

# The launcher finds the rest from where it is itself, so that the whole may be moved.
file(RELATIVE_PATH NESTRIX_FROM_BIN_TO_DATA /${CMAKE_INSTALL_BINDIR} /${nestrix_data_folder})
file(RELATIVE_PATH NESTRIX_FROM_BIN_TO_PROGRAM /${CMAKE_INSTALL_BINDIR} /${nestrix_program_folder})
configure_file(${CMAKE_CURRENT_LIST_DIR}/nestrix.in ${CMAKE_BINARY_DIR}/packaging/nestrix @ONLY)
install(PROGRAMS ${CMAKE_BINARY_DIR}/packaging/nestrix DESTINATION ${CMAKE_INSTALL_BINDIR})

install(FILES ${CMAKE_CURRENT_LIST_DIR}/nestrix.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/nestrix.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
