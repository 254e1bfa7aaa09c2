# Builds for 64-bit Windows with Debian's mingw-w64: cmake --toolchain cmake/mingw.cmake.
# The `posix` compilers are those with the C++ library's threads and file system.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Libraries and headers are the target's alone. Packages are where the caller says: Qt's host tools are one, too.
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE NEVER)

# The compiler's own libraries, too, go into the program: nobody would find three more DLLs beside it of use.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
