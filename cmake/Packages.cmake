# What `cmake --install` and CPack give. Three components:
#   portable  one folder that runs where its user may write: program, guide, sample game
#   licence   its licences; a Debian package has a place of its own for them
#   debian    what ties the portable folder into a Debian system; installed only when asked for
# `cmake --install` and the archive take the first two, the Debian package the first, below /usr/lib, and the last.

set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS  # whatever the umask of who packs
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

install(TARGETS fb_editor RUNTIME DESTINATION . COMPONENT portable)
install(FILES docs/FB_Editor.Help DESTINATION . COMPONENT portable)
install(DIRECTORY game/ DESTINATION Floebird COMPONENT portable)
install(FILES LICENSE LICENSE.CC0 DESTINATION . COMPONENT licence)

if(NOT CMAKE_SYSTEM_NAME STREQUAL "Linux")
    return()
endif()

function(fb_install_debian kind destination)
    install(${kind} ${ARGN} DESTINATION ${destination} COMPONENT debian EXCLUDE_FROM_ALL)
endfunction()

set(linux ${PROJECT_SOURCE_DIR}/packaging/linux)
fb_install_debian(PROGRAMS games ${linux}/fb-editor)
fb_install_debian(PROGRAMS lib/fb-editor packaging/lay_out packaging/start)
fb_install_debian(FILES share/applications ${linux}/fb-editor.desktop)
fb_install_debian(FILES share/metainfo ${linux}/example.floebird.fb_editor.metainfo.xml)
fb_install_debian(FILES share/mime/packages ${linux}/fb-editor.xml)
fb_install_debian(FILES share/doc/fb-editor ${linux}/copyright)

# The version stands in these, too.
foreach(page IN ITEMS CHANGELOG.md packaging/linux/changelog packaging/linux/fb-editor.6
                      packaging/linux/example.floebird.fb_editor.metainfo.xml)
    file(STRINGS ${page} version_lines REGEX "[^0-9]${PROJECT_VERSION}[^0-9]")
    if(NOT version_lines)
        message(WARNING "${page} does not name version ${PROJECT_VERSION}")
    endif()
endforeach()

# Pages that a Debian system expects packed, without the time of packing.
set(made_files "")
function(fb_install_packed source name destination)
    set(packed ${PROJECT_BINARY_DIR}/packed/${name}.gz)
    add_custom_command(OUTPUT ${packed}
        COMMAND gzip -9nc ${source} > ${packed}
        DEPENDS ${source}
        VERBATIM)
    fb_install_debian(FILES ${destination} ${packed})
    set(made_files ${made_files} ${packed} PARENT_SCOPE)
endfunction()
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/packed ${PROJECT_BINARY_DIR}/icons)
fb_install_packed(${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog share/doc/fb-editor)
fb_install_packed(${linux}/changelog changelog.Debian share/doc/fb-editor)
fb_install_packed(${linux}/fb-editor.6 fb-editor.6 share/man/man6)

# The icon: as it is drawn, and in the sizes that desktops ask for.
set(icon ${FB_ASSETS_DIR}/ProgramIcon.svg)
install(FILES ${icon} DESTINATION share/icons/hicolor/scalable/apps RENAME fb-editor.svg
    COMPONENT debian EXCLUDE_FROM_ALL)
foreach(size IN ITEMS 16 22 24 32 48 64 128 256)
    set(drawn ${PROJECT_BINARY_DIR}/icons/${size}.png)
    add_custom_command(OUTPUT ${drawn}
        COMMAND ${RSVG_CONVERT} --width ${size} --height ${size} --output ${drawn} ${icon}
        DEPENDS ${icon}
        VERBATIM)
    install(FILES ${drawn} DESTINATION share/icons/hicolor/${size}x${size}/apps RENAME fb-editor.png
        COMPONENT debian EXCLUDE_FROM_ALL)
    list(APPEND made_files ${drawn})
endforeach()
add_custom_target(package_files ALL DEPENDS ${made_files})

set(CPACK_PACKAGE_NAME FB_Editor)
set(CPACK_PACKAGE_FILE_NAME FB_Editor-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_PACKAGE_CONTACT "The Floebird Editor authors <authors@floebird.example>")
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_LIST_DIR}/PackageParts.cmake)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_NAME fb-editor)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://floebird.example/editor)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "editor of levels and world maps for the game Floebird
Makes the content files of the tile platform game Floebird: levels, level sets
and world maps. It shows a file on a grid of tiles, lets you change it with
clicks, and saves exactly the text that the game reads.
.
A guide and a small sample game come with it.")
include(CPack)
