# Warnings, sanitizers and the app folder that every target shares.

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Werror)
include_directories(${CMAKE_SOURCE_DIR})

# Code for one operating system lies in folders of this name.
if(WIN32)
  set(SYSTEM_FOLDER windows)
  set(OTHER_SYSTEM_FOLDER linux)
  add_compile_definitions(WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00)  # Windows 10
else()
  set(SYSTEM_FOLDER linux)
  set(OTHER_SYSTEM_FOLDER windows)
endif()

# Log lines name source files by their place in the project.
add_compile_options(-fmacro-prefix-map=${CMAKE_SOURCE_DIR}/=)

if(SYSDIAGNOSE_SANITIZE)
  add_compile_options(-fsanitize=${SYSDIAGNOSE_SANITIZE} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${SYSDIAGNOSE_SANITIZE})
  # This check opens a pipe to look at an object's type, and fails where no descriptor is free.
  add_compile_options(-fno-sanitize=vptr)
  # GCC takes what the sanitizers add to inlined library code for reads of uninitialized memory.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-Wno-maybe-uninitialized)
  endif()
endif()
if(SYSDIAGNOSE_SANITIZE STREQUAL "thread")
  # The thread sanitizer knows no fences; the locks around them do without.
  add_compile_definitions(ASIO_DISABLE_FENCED_BLOCK)
endif()

# For every target that includes Asio. Whether Asio sees std::aligned_alloc hangs on what was included
# before it, and all files of a program have to agree.
set(ASIO_DEFINITIONS ASIO_STANDALONE ASIO_NO_DEPRECATED ASIO_DISABLE_STD_ALIGNED_ALLOC)

# The build tree holds one folder laid out as an installation.
set(APP_DIR ${CMAKE_BINARY_DIR}/app)
