# Files that the program brings along and a program of this project makes; they are the same on every
# system. A cross build takes them over from a build for this machine, because some builders use
# libraries that only this machine has. They lie in the build folder's "data".
#
#   orvane_data_file(<name> BUILDER <target, called with the file's path>)
#
# The target orvane_data makes them all.
set(ORVANE_NATIVE_BUILD "${CMAKE_SOURCE_DIR}/build/dev" CACHE PATH
  "Build folder for this machine, whose data files a cross build takes over")
add_custom_target(orvane_data ALL)

function(orvane_data_file name)
  cmake_parse_arguments(ARG "" "BUILDER" "" ${ARGN})
  set(file "${CMAKE_BINARY_DIR}/data/${name}")
  if(CMAKE_CROSSCOMPILING)
    set(native "${ORVANE_NATIVE_BUILD}/data/${name}")
    add_custom_command(OUTPUT "${file}"
      COMMAND ${CMAKE_COMMAND} -E copy "${native}" "${file}"
      DEPENDS "${native}"
      COMMENT "Taking over ${name}")
  else()
    add_custom_command(OUTPUT "${file}"
      COMMAND ${CMAKE_COMMAND} -E make_directory "${CMAKE_BINARY_DIR}/data"
      COMMAND ${ARG_BUILDER} "${file}"
      DEPENDS ${ARG_BUILDER}
      COMMENT "Creating ${name}")
  endif()
  add_custom_target(orvane_data_${name} DEPENDS "${file}")
  add_dependencies(orvane_data orvane_data_${name})
endfunction()
