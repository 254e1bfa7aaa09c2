# fb_add_windows_resources(<target>): the icon, drawn anew from assets/, the version and the manifest of the program.

enable_language(RC)
find_program(ICOTOOL icotool REQUIRED DOC "Joins pictures into an .ico file (Debian: icoutils)")

function(fb_add_windows_resources target)
    set(drawn_dir "${CMAKE_CURRENT_BINARY_DIR}/icon")
    file(MAKE_DIRECTORY "${drawn_dir}")
    set(drawing "${FB_ASSETS_DIR}/ProgramIcon.svg")
    set(drawn "")
    foreach(size IN ITEMS 16 24 32 48 64 256)
        add_custom_command(
            OUTPUT "${drawn_dir}/${size}.png"
            COMMAND "${RSVG_CONVERT}" --width ${size} --height ${size} --output "${drawn_dir}/${size}.png" "${drawing}"
            DEPENDS "${drawing}"
            VERBATIM)
        list(APPEND drawn "${drawn_dir}/${size}.png")
    endforeach()
    set(icon "${drawn_dir}/FB_Editor.ico")
    list(POP_BACK drawn largest)
    add_custom_command(
        OUTPUT "${icon}"
        COMMAND "${ICOTOOL}" --create --output "${icon}" ${drawn} "--raw=${largest}"  # that one as a PNG, for its size
        DEPENDS ${drawn} "${largest}"
        COMMENT "Drawing the program's icon"
        VERBATIM)

    string(REGEX REPLACE "^0+([0-9])" "\\1" minor ${PROJECT_VERSION_MINOR})  # a leading 0 would make it octal
    set(numbers ${PROJECT_VERSION_MAJOR},${minor},0,0)
    set(resources "${CMAKE_CURRENT_BINARY_DIR}/FB_Editor.rc")
    configure_file("${PROJECT_SOURCE_DIR}/packaging/windows.rc.in" "${resources}" @ONLY)
    set_source_files_properties("${resources}" PROPERTIES
        OBJECT_DEPENDS "${icon};${PROJECT_SOURCE_DIR}/packaging/windows.manifest")
    target_sources(${target} PRIVATE "${resources}")
    if(MSVC)
        target_link_options(${target} PRIVATE /MANIFEST:NO)  # not one of the linker's own besides
    endif()
endfunction()
