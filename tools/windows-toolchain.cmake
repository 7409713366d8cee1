# Builds for 64-bit Windows on another system. The programs run under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# Only the variant with POSIX threads has all of C++20 in its standard library.
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)

# Programs and DLLs contain the compiler's runtime, so that no DLL has to be installed.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -static)
set(CMAKE_MODULE_LINKER_FLAGS_INIT -static)

# This system's own libraries and headers cannot be used for Windows. TURNPOST_TOOLKIT is the folder of
# the static Qt, which the windows need.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TURNPOST_TOOLKIT)
set(CMAKE_FIND_ROOT_PATH ${TURNPOST_TOOLKIT} /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/wine)
