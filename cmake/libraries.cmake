# One function per kind of library. All compile with hidden visibility; what a shared library
# offers is marked in its headers.

# A static library, linked into whoever needs it; none of its symbols leave that module.
function(add_core_library name)
  add_library(${name} STATIC ${ARGN})
endfunction()

# A shared platform library. It is never unmapped: its threads, queues and the code behind its
# handed-out pointers live as long as the process.
function(add_platform_library name)
  add_library(${name} SHARED ${ARGN})
  set_target_properties(${name} PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${APP_DIR}
                                           BUILD_RPATH "$ORIGIN" INSTALL_RPATH "$ORIGIN")
  target_link_options(${name} PRIVATE -Wl,-z,nodelete -Wl,--exclude-libs,ALL)
endfunction()

# A plugin: a shared library that exports the names of its version script and nothing else, and
# that leaves the process when its last user lets go of it.
#   add_plugin_library(name VERSION_SCRIPT file SOURCES ... LIBRARIES ...)
function(add_plugin_library name)
  cmake_parse_arguments(ARG "" "VERSION_SCRIPT" "SOURCES;LIBRARIES" ${ARGN})
  add_library(${name} SHARED ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES})
  set_target_properties(${name} PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${APP_DIR}
                                           BUILD_RPATH "$ORIGIN" INSTALL_RPATH "$ORIGIN"
                                           LINK_DEPENDS ${ARG_VERSION_SCRIPT})
  target_link_options(${name} PRIVATE -Wl,--version-script=${ARG_VERSION_SCRIPT})
endfunction()
