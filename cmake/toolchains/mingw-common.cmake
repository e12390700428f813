# Shared part of the two mingw-w64 toolchain files; RINGBOOK_MINGW_TRIPLET
# names the target. Debian installs the win32-thread compilers under the
# plain triplet names as alternatives and under "-win32" as well: prefer the
# explicit ones.
set(CMAKE_SYSTEM_NAME Windows)
if(RINGBOOK_MINGW_TRIPLET MATCHES "^x86_64")
  set(CMAKE_SYSTEM_PROCESSOR AMD64)
else()
  set(CMAKE_SYSTEM_PROCESSOR X86)
endif()

foreach(_tool C CXX)
  if(_tool STREQUAL "C")
    set(_name gcc)
  else()
    set(_name g++)
  endif()
  find_program(_rb_${_name}
    NAMES ${RINGBOOK_MINGW_TRIPLET}-${_name}-win32 ${RINGBOOK_MINGW_TRIPLET}-${_name}
    REQUIRED NO_CACHE)
  set(CMAKE_${_tool}_COMPILER ${_rb_${_name}})
endforeach()
find_program(CMAKE_RC_COMPILER ${RINGBOOK_MINGW_TRIPLET}-windres REQUIRED)
find_program(RINGBOOK_WIDL ${RINGBOOK_MINGW_TRIPLET}-widl)

set(CMAKE_FIND_ROOT_PATH /usr/${RINGBOOK_MINGW_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Windows programs and DLLs of this project carry their C and C++ runtimes,
# so they import nothing but system DLLs.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")
