# For 64-bit Windows, with Debian's cross compiler. CMake looks for Qt where scripts/windows-qt puts it.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# The "posix" compiler has the standard library's threads; the "win32" one lacks them.
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# The compiler's libraries go into each .exe: it needs nothing but Windows.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)

cmake_path(GET CMAKE_CURRENT_LIST_DIR PARENT_PATH project)
# No .exe tells where it was built.
set(CMAKE_C_FLAGS_INIT -ffile-prefix-map=${project}=.)
set(CMAKE_CXX_FLAGS_INIT ${CMAKE_C_FLAGS_INIT})

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${project}/build/windows-qt/installed)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
