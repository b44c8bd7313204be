# A folder of the source tree is one target named after it (platform/os: platform_os) that declares
# which other folders its files include. cmake/check_includes.cmake holds the files against that.

# These folders make up the utility library. Among themselves they are linked as they are, everyone
# else links the shared library.
set(UTIL_FOLDERS
    platform/concurrency platform/util platform/report platform/message
    platform/machine/interface platform/machine/workloads platform/machine/live
    platform/machine/masking platform/machine/machine_files platform/machine
    platform/hardware_sdk platform/hardware_detect)

# The static library of the folder that calls this.
#   add_folder(SOURCES file... NEEDS folder... LIBRARIES target...)
function(add_folder)
  cmake_parse_arguments(ARG "" "" "SOURCES;NEEDS;LIBRARIES" ${ARGN})
  folder_here(folder)
  string(REPLACE / _ target ${folder})
  add_library(${target} STATIC ${ARG_SOURCES})
  target_link_libraries(${target} PUBLIC ${ARG_LIBRARIES})
  if(folder IN_LIST UTIL_FOLDERS)
    target_compile_definitions(${target} PRIVATE UTIL_BUILDING INTERFACE UTIL_STATIC)
    set_property(GLOBAL APPEND PROPERTY UTIL_LIBRARIES ${ARG_LIBRARIES})
  endif()
  folder_needs(${target} PUBLIC ${ARG_NEEDS})
endfunction()

# Declares and links what the files of this folder include, for a target made otherwise.
#   folder_needs(target PUBLIC|PRIVATE folder...)
function(folder_needs target visibility)
  folder_here(folder)
  string(REPLACE ";" " " line "${folder};${ARGN}")
  set_property(GLOBAL APPEND PROPERTY FOLDERS "${line}\n")
  foreach(need IN LISTS ARGN)
    if(need STREQUAL platform/duilib)
      target_link_libraries(${target} ${visibility} DuiLib)
    elseif(need IN_LIST UTIL_FOLDERS AND NOT folder IN_LIST UTIL_FOLDERS)
      target_link_libraries(${target} ${visibility} Util)
    elseif(NOT need STREQUAL platform/plugins_manager)  # that one is reached by name
      string(REPLACE / _ library ${need})
      target_link_libraries(${target} ${visibility} ${library})
    endif()
  endforeach()
endfunction()

function(folder_here out)
  cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY ${CMAKE_SOURCE_DIR}
             OUTPUT_VARIABLE folder)
  set(${out} ${folder} PARENT_SCOPE)
endfunction()

# For the check: a line per folder, its needs behind it.
function(write_folders file)
  get_property(folders GLOBAL PROPERTY FOLDERS)
  string(CONCAT text ${folders})
  file(GENERATE OUTPUT ${file} CONTENT "${text}")
endfunction()
