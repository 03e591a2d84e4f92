# Language level, warnings, sanitizers and output folders, shared by every target of the project.

option(STRATIVO_BUILD_TESTS "Build the test programs" ON)
option(STRATIVO_BUILD_BENCHMARKS "Build the benchmark programs" OFF)
option(STRATIVO_BUILD_DOCS "Build the HTML documentation (needs Sphinx)" ON)
option(STRATIVO_BUILD_FUZZERS "Build the programs that feed readers with files of any content (needs clang)" OFF)
option(STRATIVO_SANITIZE "Instrument with the address and undefined-behaviour sanitizers" OFF)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)

# The program and the Python tree lie side by side in bin/, as they are shipped.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  # Without this ccache refuses every file that uses a precompiled header.
  set(ccache_launcher "${CMAKE_COMMAND}" -E env "CCACHE_SLOPPINESS=pch_defines,time_macros" "${CCACHE_PROGRAM}")
  set(CMAKE_C_COMPILER_LAUNCHER "${ccache_launcher}")
  set(CMAKE_CXX_COMPILER_LAUNCHER "${ccache_launcher}")
endif()

add_library(strativo_build_flags INTERFACE)
# QT_NO_KEYWORDS: "slots" is a field name in Python.h.
target_compile_definitions(strativo_build_flags INTERFACE QT_NO_KEYWORDS QT_NO_CAST_FROM_BYTEARRAY)
target_compile_options(strativo_build_flags INTERFACE
  $<$<COMPILE_LANGUAGE:CXX>:-Wall;-Wextra;-Wpedantic;-Wshadow;-Wnon-virtual-dtor;-Woverloaded-virtual;-Wno-missing-field-initializers>
  -Werror
  -fno-semantic-interposition
  -fpch-preprocess)
if(STRATIVO_BUILD_FUZZERS)
  target_compile_options(strativo_build_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(STRATIVO_SANITIZE)
  # Without vptr: Boost.Python asks for the dynamic type of an object whose destructor has run.
  set(sanitizers -fsanitize=address,undefined -fno-sanitize=vptr)
  target_compile_options(strativo_build_flags INTERFACE ${sanitizers} -fno-sanitize-recover=undefined
    -fno-omit-frame-pointer -Wno-maybe-uninitialized) # which instrumented code sets off for nothing
  target_link_options(strativo_build_flags INTERFACE ${sanitizers})
else()
  # What an overrun of a buffer would need in order to be of use to somebody.
  target_compile_options(strativo_build_flags INTERFACE -fstack-protector-strong
    $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>)
  # The tables that calls go through are filled at the start and cannot be written afterwards; that costs about 1 ms.
  target_link_options(strativo_build_flags INTERFACE -Wl,-z,relro -Wl,-z,now)
  # Virtual tables are full of names of their own library; looking each of them up takes milliseconds of the
  # program's start.
  target_link_options(strativo_build_flags INTERFACE $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,SHARED_LIBRARY>:-Wl,-Bsymbolic>)
endif()
# A library that needs another one says so: a use of what lies above it is an error of its link.
target_link_options(strativo_build_flags INTERFACE
  $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,SHARED_LIBRARY>:-Wl,--no-undefined>)
