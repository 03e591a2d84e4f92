# The scripting layer: one shared library over the folders that make it up. Each folder lists its own sources.

add_library(strativo_python SHARED)
target_include_directories(strativo_python PUBLIC "${PROJECT_SOURCE_DIR}")
target_link_libraries(strativo_python
  PUBLIC strativo_ui strativo_boost_python Qt5::Widgets
  PRIVATE strativo_build_flags)
target_precompile_headers(strativo_python PRIVATE "${PROJECT_SOURCE_DIR}/runtime/Precompiled.h")

foreach(folder runtime module plugins editor)
  add_subdirectory(${folder})
endforeach()
