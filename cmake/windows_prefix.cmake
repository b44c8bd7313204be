# The folder of the libraries, as the toolchain file names it.

# What was found in another one is searched for again.
if(SEARCHED_PREFIX AND NOT SEARCHED_PREFIX STREQUAL WINDOWS_PREFIX)
  get_cmake_property(names CACHE_VARIABLES)
  foreach(name IN LISTS names)
    if("$CACHE{${name}}" MATCHES "^${SEARCHED_PREFIX}/")
      unset(${name} CACHE)
    endif()
  endforeach()
endif()
set(SEARCHED_PREFIX ${WINDOWS_PREFIX} CACHE INTERNAL "")

# What programs need beside them: the shared libraries, those of the compiler, the data of ICU.
file(GLOB runtime_files ${WINDOWS_PREFIX}/bin/*.dll ${WINDOWS_PREFIX}/share/icu/*.dat)
foreach(library libstdc++-6.dll libgcc_s_seh-1.dll libssp-0.dll libwinpthread-1.dll)
  execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}
                  OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  list(APPEND runtime_files ${file})
endforeach()
copy_to_app(app_runtime DESTINATION . FILES ${runtime_files})
