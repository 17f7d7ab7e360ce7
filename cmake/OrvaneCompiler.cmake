# Language level, warnings and sanitizers for every target of this project.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

option(ORVANE_SANITIZE "Address and undefined-behaviour sanitizers" OFF)

find_program(ORVANE_CCACHE ccache)
if(ORVANE_CCACHE)
  # Another clone of the same source finds what this one has compiled.
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env
    "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}" CCACHE_NOHASHDIR=1 "${ORVANE_CCACHE}")
endif()

add_library(orvane_compiler INTERFACE)
target_compile_options(orvane_compiler INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # Optimised, GCC 12 reports overlapping copies inside std::string where there are none.
  target_compile_options(orvane_compiler INTERFACE -Wno-restrict)
endif()
if(ORVANE_SANITIZE)
  target_compile_options(orvane_compiler INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(orvane_compiler INTERFACE -fsanitize=address,undefined)
endif()
