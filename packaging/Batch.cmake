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

# The manuals, and all that they link to.
file(GLOB nestrix_manuals CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/docs/manual.md ${PROJECT_SOURCE_DIR}/docs/formats.md
    ${PROJECT_SOURCE_DIR}/docs/many-machines.md ${PROJECT_SOURCE_DIR}/docs/packing-freely.md
    ${PROJECT_SOURCE_DIR}/docs/*.schema.json ${PROJECT_SOURCE_DIR}/docs/pack-seeds.sbatch)
set(nestrix_manuals_folder ${CMAKE_INSTALL_DATADIR}/doc/nestrix-batch)
install(FILES ${nestrix_manuals} DESTINATION ${nestrix_manuals_folder} COMPONENT batch)
install(FILES ${PROJECT_SOURCE_DIR}/docs/images/any-angle.svg
              ${PROJECT_SOURCE_DIR}/docs/images/free-packing.svg
    DESTINATION ${nestrix_manuals_folder}/images COMPONENT batch)
nestrix_papers(nestrix-batch batch)
