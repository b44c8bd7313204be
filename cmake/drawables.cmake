# Draws the pictures of the app folder from SVG sources, each at one and at two dots per point:
# NAME.png and NAME@2x.png. The width and height of a source are its size in points.

find_program(RSVG_CONVERT rsvg-convert REQUIRED)

# The two pictures of a source; `path` is that of the pictures below the app folder, without their
# endings. They are added to DRAWABLES.
function(draw source path)
  cmake_path(GET path PARENT_PATH folder)
  file(MAKE_DIRECTORY ${APP_DIR}/${folder})
  set(picture ${APP_DIR}/${path}.png)
  set(double ${APP_DIR}/${path}@2x.png)
  add_custom_command(OUTPUT ${picture} DEPENDS ${source} VERBATIM COMMENT "Draw ${path}"
                     COMMAND ${RSVG_CONVERT} ${source} -o ${picture})
  add_custom_command(OUTPUT ${double} DEPENDS ${source} VERBATIM COMMENT "Draw ${path}"
                     COMMAND ${RSVG_CONVERT} --zoom 2 ${source} -o ${double})
  set(DRAWABLES ${DRAWABLES} ${picture} ${double} PARENT_SCOPE)
endfunction()

# The same for a source with variables in it, which are filled in first.
macro(draw_filled template path)
  set(filled ${CMAKE_CURRENT_BINARY_DIR}/${path}.svg)
  configure_file(${template} ${filled} @ONLY)
  draw(${filled} ${path})
endmacro()
