# The newest entry of CHANGELOG.md is this version's: nothing can be packaged under a number that it does not
# tell about. Its date is the release's wherever one is told, so that what is built twice is the same.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
file(READ ${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog)
if(NOT changelog MATCHES "\n## \\[([0-9.]+)\\] - ([0-9]+-[0-9]+-[0-9]+)\n")
    message(FATAL_ERROR "CHANGELOG.md has no entry such as \"## [1.0] - 2026-11-22\"")
endif()
if(NOT CMAKE_MATCH_1 VERSION_EQUAL PROJECT_VERSION)
    message(FATAL_ERROR
        "The newest entry of CHANGELOG.md is ${CMAKE_MATCH_1}, the project's version ${PROJECT_VERSION}")
endif()
set(NESTRIX_RELEASE_DATE ${CMAKE_MATCH_2})
execute_process(COMMAND env LC_ALL=C date --utc --rfc-email --date ${NESTRIX_RELEASE_DATE}
    OUTPUT_VARIABLE NESTRIX_RELEASE_TIME OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND date --utc --date ${NESTRIX_RELEASE_DATE} +%s
    OUTPUT_VARIABLE NESTRIX_RELEASE_SECONDS OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)

# Reserved names: the project has no address of its own yet.
set(NESTRIX_MAINTAINER "Nestrix maintainers <maintainers@nestrix.example>")
set(NESTRIX_HOMEPAGE "https://nestrix.example")

# The entry in the form of Debian's changelogs: what is indented goes on, and headings are in brackets.
string(FIND "${changelog}" "\n## [" begin)
string(SUBSTRING "${changelog}" ${begin} -1 entry)
string(REGEX REPLACE "^\n## [^\n]*\n" "" entry "${entry}")
string(REGEX REPLACE "\n## .*" "" entry "${entry}")
string(REGEX REPLACE "\n\n+" "\n" entry "${entry}")
string(REGEX REPLACE "\n### ([^\n]*)" "\n  [ \\1 ]" entry "${entry}")
string(REGEX REPLACE "\n- " "\n  * " entry "${entry}")
string(REGEX REPLACE "\n  ([a-zA-Z])" "\n    \\1" entry "${entry}")
string(STRIP "${entry}" entry)
set(NESTRIX_CHANGES "  ${entry}")
