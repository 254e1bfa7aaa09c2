# The program's pictures: every SVG sheet of assets/ is drawn as a PNG at 1x and one at 2x in the build tree, and the
# pixels of all of them become the one file `pictures.bin`, which the program holds in its read-only data.
#
# fb_embed_pictures(<target> <source>) makes that file, and defines FB_PICTURES as its path for the source that takes
# it in.

find_program(RSVG_CONVERT rsvg-convert DOC "Turns the SVG sheets of assets/ into PNG sheets")
if(NOT RSVG_CONVERT)
    message(FATAL_ERROR "rsvg-convert was not found: it turns the pictures of assets/ from SVG into PNG. "
                        "Install it (Debian: librsvg2-bin) or set RSVG_CONVERT to its path.")
endif()

set(FB_ASSETS_DIR "${CMAKE_CURRENT_LIST_DIR}/../assets")

function(fb_embed_pictures target source)
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

    # The tool that takes the pixels out runs on this system, also where the program is built for another one.
    set(tool_source "${PROJECT_SOURCE_DIR}/platform/embed")
    set(tool_dir "${CMAKE_CURRENT_BINARY_DIR}/embed_pictures")
    if(CMAKE_CROSSCOMPILING)
        set(tool_settings -D "CMAKE_PREFIX_PATH=${QT_HOST_PATH}")
    else()
        set(tool_settings -D "CMAKE_CXX_COMPILER=${CMAKE_CXX_COMPILER}" -D "Qt6_DIR=${Qt6_DIR}")
    endif()
    set(tool "${tool_dir}/embed_pictures${CMAKE_HOST_EXECUTABLE_SUFFIX}")
    add_custom_command(
        OUTPUT "${tool}"
        COMMAND "${CMAKE_COMMAND}" -S "${tool_source}" -B "${tool_dir}" -G "${CMAKE_GENERATOR}"
                -D CMAKE_BUILD_TYPE=Release ${tool_settings}
        COMMAND "${CMAKE_COMMAND}" --build "${tool_dir}"
        DEPENDS "${tool_source}/CMakeLists.txt" "${tool_source}/EmbedPictures.cpp"
                "${PROJECT_SOURCE_DIR}/platform/SheetIndex.h"
        COMMENT "Building the tool that embeds the pictures"
        VERBATIM)

    set(embedded "${CMAKE_CURRENT_BINARY_DIR}/pictures.bin")
    add_custom_command(
        OUTPUT "${embedded}"
        COMMAND "${tool}" "${embedded}" ${pictures}
        DEPENDS "${tool}" ${pictures}
        COMMENT "Taking the pixels out of the pictures"
        VERBATIM)
    target_sources(${target} PRIVATE "${source}")
    set_source_files_properties("${source}" PROPERTIES
        OBJECT_DEPENDS "${embedded}"
        COMPILE_DEFINITIONS "FB_PICTURES=\"${embedded}\"")
endfunction()
