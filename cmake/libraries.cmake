# One function per kind of library and program. All compile with hidden visibility; what a shared
# library offers is marked in its headers.

# A program of the installation.
function(add_app_program name)
  add_program(${name} ${ARGN})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${APP_DIR}
                                           BUILD_RPATH "$ORIGIN" INSTALL_RPATH "$ORIGIN")
endfunction()

# Any program; on Windows with the manifest that makes its narrow text UTF-8.
function(add_program name)
  add_executable(${name} ${ARGN})
  if(WIN32)
    target_sources(${name} PRIVATE ${CMAKE_SOURCE_DIR}/platform/os/windows/program.rc)
    add_dependencies(${name} app_runtime)
  endif()
endfunction()

# A shared platform library. It is never unmapped: its threads, queues and the code behind its
# handed-out pointers live as long as the process.
function(add_platform_library name)
  add_app_library(${name} ${ARGN})
  if(WIN32)
    target_sources(${name} PRIVATE ${CMAKE_SOURCE_DIR}/platform/os/windows/stay_loaded.cpp)
  else()
    target_link_options(${name} PRIVATE -Wl,-z,nodelete -Wl,--exclude-libs,ALL)
  endif()
endfunction()

# A shared library of the installation. Windows has the name as it stands, and looks for libraries
# among the programs.
function(add_app_library name)
  add_library(${name} SHARED ${ARGN})
  set_target_properties(${name} PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${APP_DIR}
                                           RUNTIME_OUTPUT_DIRECTORY ${APP_DIR}
                                           BUILD_RPATH "$ORIGIN" INSTALL_RPATH "$ORIGIN")
  if(WIN32)
    set_target_properties(${name} PROPERTIES PREFIX "")
  elseif(NOT SYSDIAGNOSE_SANITIZE)  # whose runtime comes with the program
    target_link_options(${name} PRIVATE -Wl,-z,defs)
  endif()
endfunction()

# A plugin: a shared library that exports the names of its version script and nothing else, and
# that leaves the process when its last user lets go of it.
#   add_plugin_library(name VERSION_SCRIPT file SOURCES ... LIBRARIES ...)
function(add_plugin_library name)
  cmake_parse_arguments(ARG "" "VERSION_SCRIPT" "SOURCES;LIBRARIES" ${ARGN})
  add_app_library(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES})
  if(NOT WIN32)  # there nothing leaves a library unmarked
    set_target_properties(${name} PROPERTIES LINK_DEPENDS ${ARG_VERSION_SCRIPT})
    target_link_options(${name} PRIVATE -Wl,--version-script=${ARG_VERSION_SCRIPT})
  endif()
endfunction()
