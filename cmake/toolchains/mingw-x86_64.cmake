# Cross-compiling for 64-bit Windows with Debian's mingw-w64 (win32 threads):
#   cmake -B build/win64 -DCMAKE_TOOLCHAIN_FILE=cmake/toolchains/mingw-x86_64.cmake
# Packages: g++-mingw-w64-x86-64-win32, mingw-w64-tools (widl).
set(RINGBOOK_MINGW_TRIPLET x86_64-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-common.cmake)
