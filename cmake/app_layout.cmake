# Copies data files into the app folder, keeping each one up to date with its source.
#   copy_to_app(target DESTINATION folder FILES file...)
function(copy_to_app target)
  cmake_parse_arguments(ARG "" "DESTINATION" "FILES" ${ARGN})
  foreach(file IN LISTS ARG_FILES)
    get_filename_component(name ${file} NAME)
    set(copy ${APP_DIR}/${ARG_DESTINATION}/${name})
    add_custom_command(OUTPUT ${copy} DEPENDS ${file} VERBATIM
                       COMMAND ${CMAKE_COMMAND} -E copy ${file} ${copy})
    list(APPEND copies ${copy})
  endforeach()
  add_custom_target(${target} ALL DEPENDS ${copies})
endfunction()
