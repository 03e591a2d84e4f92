# The scripting layer: two shared libraries over the folders that make it up. Each folder lists its own sources.

# The interpreter, values and data; no windows.
add_library(strativo_scripting SHARED)
target_link_libraries(strativo_scripting
  PUBLIC strativo_data strativo_boost_python
  PRIVATE strativo_build_flags)
target_precompile_headers(strativo_scripting PRIVATE "${PROJECT_SOURCE_DIR}/runtime/Precompiled.h")

# Windows and the application: the whole module, plug-ins, the editor.
add_library(strativo_python SHARED)
target_link_libraries(strativo_python
  PUBLIC strativo_scripting strativo_ui
  PRIVATE strativo_build_flags)
target_precompile_headers(strativo_python PRIVATE
  "${PROJECT_SOURCE_DIR}/runtime/Precompiled.h" <QApplication> <QPlainTextEdit> <QWidget>)

foreach(folder runtime module plugins editor)
  add_subdirectory(${folder})
endforeach()
