option(NESTRIX_WINDOW "Build the desktop program (needs wxWidgets, OpenGL and FTGL)" ON)
option(NESTRIX_BENCH "Build the benchmarks (needs Google Benchmark)" OFF)
option(NESTRIX_FUZZ "Build the fuzz targets (needs clang)" OFF)
option(NESTRIX_COVERAGE "Count executed lines" OFF)
set(NESTRIX_SANITIZE "" CACHE STRING "Sanitizers, as for -fsanitize=")

# What every target of the project is compiled with.
add_library(nestrix_options INTERFACE)
target_compile_options(nestrix_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Werror
    # Packings must be the same bit for bit from every compiler at every level. Contraction would fuse a
    # multiplication and an addition into one rounding wherever the processor can; -ffast-math, never used
    # here, would reorder sums and assume away NaN.
    -ffp-contract=off
    # Some libraries ask for it, and headers compiled once must suit all.
    -pthread)
if(NESTRIX_SANITIZE)
    target_compile_options(nestrix_options INTERFACE -fsanitize=${NESTRIX_SANITIZE} -fno-omit-frame-pointer
                                                     -fno-sanitize-recover=all)
    target_link_options(nestrix_options INTERFACE -fsanitize=${NESTRIX_SANITIZE})
endif()
if(NESTRIX_COVERAGE)
    target_compile_options(nestrix_options INTERFACE --coverage -fprofile-update=atomic)
    target_link_options(nestrix_options INTERFACE --coverage)
endif()

# Includes name the folder: "geom/CPolygon.h" for the programs, "tests/support/Outlines.h" for their tests.
target_include_directories(nestrix_options INTERFACE ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR})

# nestrix_common_headers(NAME HEADERS header... [LIBRARIES lib...]): headers that many files include, for
# target_precompile_headers(... REUSE_FROM NAME). That takes a third of the time of compiling. Every file includes
# what it needs all the same: CMAKE_DISABLE_PRECOMPILE_HEADERS, with which scripts/lint looks at them, is to build, too.
function(nestrix_common_headers name)
    cmake_parse_arguments(ARG "" "" "HEADERS;LIBRARIES" ${ARGN})
    set(source ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "// A library needs a source.\n")
    add_library(${name} OBJECT ${source})
    target_link_libraries(${name} PRIVATE nestrix_options ${ARG_LIBRARIES})
    target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
endfunction()

set(NESTRIX_STANDARD_HEADERS
    <algorithm> <array> <cmath> <cstdint> <cstdio> <filesystem> <functional> <limits> <map> <memory> <optional> <span>
    <string> <string_view> <utility> <vector>)
nestrix_common_headers(nestrix_standard_headers HEADERS ${NESTRIX_STANDARD_HEADERS})

# nestrix_library(NAME SOURCES...): a static library.
function(nestrix_library name)
    nestrix_window_library(${name} ${ARGN})
    target_precompile_headers(${name} REUSE_FROM nestrix_standard_headers)
endfunction()

# The same of what has templates that take long to be compiled well. Where the programs are not at their fastest
# anyway, it is compiled soon.
add_library(nestrix_soon_options INTERFACE)
target_compile_options(nestrix_soon_options INTERFACE $<$<NOT:$<CONFIG:Release>>:-O0>)
target_link_libraries(nestrix_soon_options INTERFACE nestrix_options)
nestrix_common_headers(nestrix_soon_headers HEADERS ${NESTRIX_STANDARD_HEADERS} LIBRARIES nestrix_soon_options)
function(nestrix_soon_library name)
    nestrix_window_library(${name} ${ARGN})
    target_link_libraries(${name} PRIVATE nestrix_soon_options)
    target_precompile_headers(${name} REUSE_FROM nestrix_soon_headers)
endfunction()

# The same of what includes the toolkit, whose macros do not suit those headers.
function(nestrix_window_library name)
    add_library(${name} STATIC ${ARGN})
    target_link_libraries(${name} PRIVATE nestrix_options)
endfunction()

find_package(Threads REQUIRED)
