# Debian packages, one for each component: scripts/make-packages makes them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME nestrix)
set(CPACK_PACKAGE_CONTACT ${NESTRIX_MAINTAINER})
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_COMPONENTS_ALL batch)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
# As if in place: the link to the font is made for /usr.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
    WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_BATCH_PACKAGE_NAME nestrix-batch)
set(CPACK_DEBIAN_BATCH_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_BATCH_DESCRIPTION "pack polygons into a strip without a window
Packs pieces into a strip as low as it can: anywhere in a strip of any width,
turned as allowed and never one over another, or dropped one after another in
the order that a genetic search finds best.
.
It reads DXF and SVG drawings, polygon files and published packing instances,
and writes packings for a cutter as DXF or SVG, as JSON that certifies and
repeats them, and as pictures. Packings are certified in exact arithmetic.")

if(NESTRIX_WINDOW)
    list(APPEND CPACK_COMPONENTS_ALL window)
    execute_process(COMMAND dpkg-query --search ${NESTRIX_FONT}
        OUTPUT_VARIABLE font_owner ERROR_QUIET)  # no Debian, no packages
    string(REGEX REPLACE ":.*" "" font_package "${font_owner}")
    set(CPACK_DEBIAN_WINDOW_PACKAGE_NAME nestrix)
    set(CPACK_DEBIAN_WINDOW_PACKAGE_SECTION graphics)
    set(CPACK_DEBIAN_WINDOW_PACKAGE_DEPENDS ${font_package})
    set(CPACK_DEBIAN_WINDOW_PACKAGE_SUGGESTS nestrix-batch)
    set(CPACK_DEBIAN_WINDOW_DESCRIPTION "pack polygons into a strip, in a window
Drops polygons one after another into a strip, and searches with a genetic
algorithm for the drop order and the offsets that give the lowest packing.
.
The window shows how the search gets on and the best packing so far, with
bounding boxes, profiles and drop numbers on demand. Sample sets are included.")
endif()
include(CPack)
