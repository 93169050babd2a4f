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
    -ffp-contract=off)
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

# nestrix_library(NAME SOURCES...): a static library.
function(nestrix_library name)
    add_library(${name} STATIC ${ARGN})
    target_link_libraries(${name} PRIVATE nestrix_options)
endfunction()

find_package(Threads REQUIRED)
