#pragma once

#include <array>
#include <cstdint>

/// Where a sheet lies in the one file that holds all pictures of the program. The file starts with these entries,
/// up to one without a name; the pixels follow, row by row without gaps, as premultiplied ARGB of 32 bits.
struct SheetEntry {
    std::array<char, 24> name;  ///< such as "NukIcon"; ends at the first zero
    std::uint32_t zoom;         ///< 1 or 2
    std::uint32_t width;        ///< pixels, zoom included
    std::uint32_t height;
    std::uint32_t offset;  ///< bytes from the start of the file
};
