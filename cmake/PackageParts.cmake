# Read by CPack once for each kind of package: which components it holds, and where.
get_filename_component(build ${CPACK_OUTPUT_CONFIG_FILE} DIRECTORY)
if(CPACK_GENERATOR STREQUAL "DEB")
    set(CPACK_PACKAGING_INSTALL_PREFIX /)
    set(CPACK_INSTALL_CMAKE_PROJECTS
        "${build};FB_Editor;portable;/usr/lib/fb-editor/FB_Editor"
        "${build};FB_Editor;debian;/usr")
else()
    set(CPACK_INSTALL_CMAKE_PROJECTS
        "${build};FB_Editor;portable;/"
        "${build};FB_Editor;licence;/")
endif()
