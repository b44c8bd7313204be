# The target wxwidgets: base and core. Its headers are the system's, without our warnings.
add_library(wxwidgets INTERFACE)
if(WIN32)
  find_package(wxWidgets 3.2 REQUIRED CONFIG)
  target_link_libraries(wxwidgets INTERFACE wx::core wx::base)
  target_compile_definitions(wxwidgets INTERFACE wxDEBUG_LEVEL=0)  # as it was built
else()
  find_package(wxWidgets 3.2 REQUIRED COMPONENTS core base)
  target_include_directories(wxwidgets SYSTEM INTERFACE ${wxWidgets_INCLUDE_DIRS})
  target_compile_definitions(wxwidgets INTERFACE ${wxWidgets_DEFINITIONS})
  target_link_libraries(wxwidgets INTERFACE ${wxWidgets_LIBRARIES})
endif()
