# Windows x86-64 with Debian's mingw-w64, POSIX threads. WINDOWS_PREFIX names the folder of the
# libraries, as tools/windows-deps prints it.
if(NOT DEFINED WINDOWS_PREFIX)
  message(FATAL_ERROR "Say where the libraries are: -DWINDOWS_PREFIX=\"$(tools/windows-deps)\"")
endif()
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES WINDOWS_PREFIX)

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(triple x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triple}-g++-posix)
set(CMAKE_RC_COMPILER ${triple}-windres)

# None of this machine's own headers and libraries are found, but its programs are.
set(CMAKE_FIND_ROOT_PATH ${WINDOWS_PREFIX} /usr/${triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
list(TRANSFORM WINDOWS_PREFIX APPEND /include OUTPUT_VARIABLE CMAKE_CXX_STANDARD_INCLUDE_DIRECTORIES)

cmake_path(GET CMAKE_CURRENT_LIST_DIR PARENT_PATH source)
set(CMAKE_CROSSCOMPILING_EMULATOR ${source}/tools/wine)
