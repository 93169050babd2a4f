# The program without a window, with its manuals.
install(TARGETS nestrix-batch RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT batch)

add_custom_command(
    OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/nestrix-batch.1
    COMMAND nestrix-batch --man ${NESTRIX_RELEASE_DATE} > ${CMAKE_CURRENT_BINARY_DIR}/nestrix-batch.1
    DEPENDS nestrix-batch
    VERBATIM)
nestrix_compressed(nestrix-batch.1.gz ${CMAKE_CURRENT_BINARY_DIR}/nestrix-batch.1)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/nestrix-batch.1.gz
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT batch)

install(FILES nestrix-batch.bash RENAME nestrix-batch
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT batch)

file(GLOB nestrix_manuals CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/docs/manual.md ${PROJECT_SOURCE_DIR}/docs/formats.md
    ${PROJECT_SOURCE_DIR}/docs/*.schema.json)
install(FILES ${nestrix_manuals} DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/nestrix-batch COMPONENT batch)
nestrix_papers(nestrix-batch batch)
