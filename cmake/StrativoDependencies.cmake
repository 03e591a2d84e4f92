# Everything comes from Debian packages (scripts/setup-debian.sh lists them).

find_package(Qt5 5.15 REQUIRED COMPONENTS Core Gui Widgets Svg Xml Concurrent Test)

# Boost.Python is built for the system interpreter; another python3 may stand first on PATH.
set(Python3_EXECUTABLE "/usr/bin/python3" CACHE FILEPATH "Interpreter whose library is embedded")
find_package(Python3 3.11 REQUIRED COMPONENTS Interpreter Development.Embed)
find_package(Boost 1.74 REQUIRED COMPONENTS python${Python3_VERSION_MAJOR}${Python3_VERSION_MINOR})
find_package(PROJ 9 REQUIRED CONFIG)
# By its files: the package's own CMake file lacks the one that says where the library is.
find_path(SEGYIO_INCLUDE_DIR segyio/segy.h REQUIRED)
find_library(SEGYIO_LIBRARY segyio REQUIRED)
if(STRATIVO_BUILD_TESTS)
  find_package(GTest REQUIRED)
endif()

add_library(strativo_boost_python INTERFACE)
target_link_libraries(strativo_boost_python INTERFACE
  Boost::python${Python3_VERSION_MAJOR}${Python3_VERSION_MINOR} Python3::Python)
target_compile_definitions(strativo_boost_python INTERFACE BOOST_BIND_GLOBAL_PLACEHOLDERS BOOST_ALLOW_DEPRECATED_HEADERS)

add_library(strativo_segyio INTERFACE)
target_include_directories(strativo_segyio SYSTEM INTERFACE "${SEGYIO_INCLUDE_DIR}")
target_link_libraries(strativo_segyio INTERFACE "${SEGYIO_LIBRARY}")
