# The program's pictures: every SVG sheet of assets/ becomes one PNG sheet at 1x and one at 2x in the build tree, and
# both are embedded in the program as :/pictures/<Name>.png and :/pictures/<Name>@2x.png.
#
# fb_embed_pictures(<target>) adds them to an executable or to a static library, under the fixed resource name
# `pictures`. A linker may drop the object that registers the resources of a static library, so whoever uses the library
# calls Q_INIT_RESOURCE(pictures), outside any namespace, before the first picture is loaded. In an executable the call
# does no harm.

find_program(RSVG_CONVERT rsvg-convert DOC "Turns the SVG sheets of assets/ into PNG sheets")
if(NOT RSVG_CONVERT)
    message(FATAL_ERROR "rsvg-convert was not found: it turns the pictures of assets/ from SVG into PNG. "
                        "Install it (Debian: librsvg2-bin) or set RSVG_CONVERT to its path.")
endif()

set(FB_ASSETS_DIR "${CMAKE_CURRENT_LIST_DIR}/../assets")

function(fb_embed_pictures target)
    set(picture_dir "${CMAKE_CURRENT_BINARY_DIR}/pictures")
    file(MAKE_DIRECTORY "${picture_dir}")
    file(GLOB sheets CONFIGURE_DEPENDS "${FB_ASSETS_DIR}/*.svg")

    set(pictures "")
    foreach(sheet IN LISTS sheets)
        get_filename_component(name "${sheet}" NAME_WE)
        foreach(zoom 1 2)
            if(zoom EQUAL 1)
                set(picture "${picture_dir}/${name}.png")
            else()
                set(picture "${picture_dir}/${name}@${zoom}x.png")
            endif()
            add_custom_command(
                OUTPUT "${picture}"
                COMMAND "${RSVG_CONVERT}" --zoom ${zoom} --output "${picture}" "${sheet}"
                DEPENDS "${sheet}"
                COMMENT "Drawing ${name} at ${zoom}x"
                VERBATIM)
            list(APPEND pictures "${picture}")
        endforeach()
    endforeach()

    # PNG files are compressed already.
    qt_add_resources(${target} pictures
        PREFIX "/pictures" BASE "${picture_dir}" FILES ${pictures} OPTIONS --no-compress)
endfunction()
