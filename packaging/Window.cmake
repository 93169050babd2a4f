# The window: its program, the folder it runs in, a launcher, and what a desktop wants to know of it.
set(nestrix_program_folder ${CMAKE_INSTALL_LIBEXECDIR}/nestrix)
set(nestrix_data_folder ${CMAKE_INSTALL_DATADIR}/nestrix)

install(TARGETS nestrix RUNTIME DESTINATION ${nestrix_program_folder} COMPONENT window)
install(FILES ${PROJECT_SOURCE_DIR}/src/app/Nestrix_wdr.xrc
    DESTINATION ${nestrix_data_folder} COMPONENT window)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/samples DESTINATION ${nestrix_data_folder} COMPONENT window
    FILES_MATCHING PATTERN "*.pol" PATTERN drawings EXCLUDE)

# The font stays where the system has it. Below one prefix with it, the link leads there from any root.
install(CODE "
    set(font \"${NESTRIX_FONT}\")
    set(folder \"\${CMAKE_INSTALL_PREFIX}/${nestrix_data_folder}\")
    cmake_path(IS_PREFIX CMAKE_INSTALL_PREFIX \"\${font}\" together)
    if(together)
        file(RELATIVE_PATH font \"\${folder}\" \"\${font}\")
    endif()
    file(CREATE_LINK \"\${font}\" \"\$ENV{DESTDIR}\${folder}/arial.ttf\" SYMBOLIC)" COMPONENT window)

# The launcher finds the rest from where it is itself, so that the whole may be moved.
file(RELATIVE_PATH NESTRIX_FROM_BIN_TO_DATA /${CMAKE_INSTALL_BINDIR} /${nestrix_data_folder})
file(RELATIVE_PATH NESTRIX_FROM_BIN_TO_PROGRAM /${CMAKE_INSTALL_BINDIR} /${nestrix_program_folder})
set(launcher ${CMAKE_CURRENT_BINARY_DIR}/nestrix)
configure_file(nestrix.in ${launcher} @ONLY
    FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
install(PROGRAMS ${launcher} DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT window)

find_program(HELP2MAN help2man REQUIRED)
add_custom_command(
    OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/nestrix.1
    COMMAND env SOURCE_DATE_EPOCH=${NESTRIX_RELEASE_SECONDS} ${HELP2MAN} --no-info --section 1
        --name "pack polygons into a strip" --include ${CMAKE_CURRENT_SOURCE_DIR}/nestrix.h2m
        --output ${CMAKE_CURRENT_BINARY_DIR}/nestrix.1 ${launcher}
    # Its date is a month in words, which not every reader of manual pages takes for one.
    COMMAND sed -i "/^\\.TH /s/\"[A-Z][a-z]* [0-9]*\"/\"${NESTRIX_RELEASE_DATE}\"/"
        ${CMAKE_CURRENT_BINARY_DIR}/nestrix.1
    DEPENDS ${launcher} nestrix.h2m
    VERBATIM)
nestrix_compressed(nestrix.1.gz ${CMAKE_CURRENT_BINARY_DIR}/nestrix.1)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/nestrix.1.gz
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT window)

# Small sizes have a drawing of their own.
set(icon_folder ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES nestrix.svg DESTINATION ${icon_folder}/scalable/apps COMPONENT window)
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
foreach(size 16 22 24 32 48 64 128 256)
    set(drawing nestrix.svg)
    if(size LESS 32)
        set(drawing nestrix-small.svg)
    endif()
    set(picture ${CMAKE_CURRENT_BINARY_DIR}/icons/${size}/nestrix.png)
    file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/icons/${size})
    add_custom_command(
        OUTPUT ${picture}
        COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} ${CMAKE_CURRENT_SOURCE_DIR}/${drawing} -o ${picture}
        DEPENDS ${drawing}
        VERBATIM)
    list(APPEND nestrix_documents ${picture})
    install(FILES ${picture} DESTINATION ${icon_folder}/${size}x${size}/apps COMPONENT window)
endforeach()

install(FILES nestrix.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT window)
install(FILES nestrix.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages COMPONENT window)
set(metainfo ${CMAKE_CURRENT_BINARY_DIR}/io.nestrix.nestrix.metainfo.xml)
configure_file(io.nestrix.nestrix.metainfo.xml.in ${metainfo} @ONLY)
install(FILES ${metainfo} DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT window)
nestrix_papers(nestrix window)
