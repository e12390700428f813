# Cross-compiling for 32-bit Windows with Debian's mingw-w64 (win32 threads):
#   cmake -B build/win32 -DCMAKE_TOOLCHAIN_FILE=cmake/toolchains/mingw-i686.cmake
# Packages: g++-mingw-w64-i686-win32, mingw-w64-tools (widl).
set(RINGBOOK_MINGW_TRIPLET i686-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
