# Format and tidy, one stamp per file: only what has changed is checked again.
#   source_checks   format over every C++ file of the project, tidy over those built for this system

find_program(CLANG_FORMAT clang-format)
find_program(CLANG_TIDY clang-tidy)
if(NOT CLANG_FORMAT OR NOT CLANG_TIDY)
  return()
endif()

file(GLOB_RECURSE checked_files CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}
     bench/*.h bench/*.cpp cli/*.h cli/*.cpp common/*.h common/*.cpp fuzz/*.h fuzz/*.cpp manager/*.h manager/*.cpp platform/*.h platform/*.cpp
     startup/*.h startup/*.cpp sysdiagnose/*.h sysdiagnose/*.cpp tests/*.h tests/*.cpp)

foreach(file IN LISTS checked_files)
  set(stamp ${CMAKE_BINARY_DIR}/checks/${file})
  get_filename_component(folder ${stamp} DIRECTORY)
  file(MAKE_DIRECTORY ${folder})

  add_custom_command(
    OUTPUT ${stamp}.format VERBATIM COMMENT ""
    DEPENDS ${CMAKE_SOURCE_DIR}/${file} ${CMAKE_SOURCE_DIR}/.clang-format
    COMMAND ${CLANG_FORMAT} --dry-run -Werror ${CMAKE_SOURCE_DIR}/${file}
    COMMAND ${CMAKE_COMMAND} -E touch ${stamp}.format)
  list(APPEND stamps ${stamp}.format)

  # Headers are checked with the sources that include them.
  if(file MATCHES "\\.cpp$" AND NOT file MATCHES "^(fuzz|tests)/|/${OTHER_SYSTEM_FOLDER}/")
    add_custom_command(
      OUTPUT ${stamp}.tidy VERBATIM COMMENT "Tidy ${file}"
      DEPENDS ${CMAKE_SOURCE_DIR}/${file} ${CMAKE_SOURCE_DIR}/.clang-tidy
      COMMAND ${CLANG_TIDY} -p ${CMAKE_BINARY_DIR} --quiet ${CMAKE_SOURCE_DIR}/${file}
      COMMAND ${CMAKE_COMMAND} -E touch ${stamp}.tidy)
    list(APPEND stamps ${stamp}.tidy)
  endif()
endforeach()
add_custom_target(source_checks DEPENDS ${stamps})
