# nestrix_compressed(OUTPUT INPUT): a compressed copy of a file that the build makes, without a name or time
# in it. It is one of ${nestrix_documents}.
function(nestrix_compressed output input)
    add_custom_command(
        OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${output}
        COMMAND gzip -9nc ${input} > ${CMAKE_CURRENT_BINARY_DIR}/${output}
        DEPENDS ${input}
        VERBATIM)
    list(APPEND nestrix_documents ${CMAKE_CURRENT_BINARY_DIR}/${output})
    set(nestrix_documents ${nestrix_documents} PARENT_SCOPE)
endfunction()

# nestrix_papers(PACKAGE COMPONENT): copyright and Debian's changelog of a package, from CHANGELOG.md.
function(nestrix_papers package component)
    set(NESTRIX_PACKAGE ${package})
    configure_file(debian-changelog.in ${CMAKE_CURRENT_BINARY_DIR}/${package}.changelog @ONLY)
    nestrix_compressed(${package}.changelog.gz ${CMAKE_CURRENT_BINARY_DIR}/${package}.changelog)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${package}.changelog.gz RENAME changelog.gz
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${component})
    install(FILES copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${component})
    set(nestrix_documents ${nestrix_documents} PARENT_SCOPE)
endfunction()
