# One static library for one source folder.
#
# Headers are included as "folder/name.h". Each module gets an include root of its own that holds
# links to its own headers only, so a header of a folder that is not among the stated dependencies
# is not found: a wrong arrow between folders fails the build.
#
#   orvane_module(<target> <folder below src> [QT] DEPENDS <targets...>)
function(orvane_module target folder)
  cmake_parse_arguments(ARG "QT" "" "DEPENDS" ${ARGN})
  set(dir "${CMAKE_SOURCE_DIR}/src/${folder}")
  file(GLOB sources CONFIGURE_DEPENDS "${dir}/*.cpp")
  file(GLOB headers CONFIGURE_DEPENDS "${dir}/*.h")

  set(root "${CMAKE_BINARY_DIR}/include/${target}")
  file(REMOVE_RECURSE "${root}")
  file(MAKE_DIRECTORY "${root}/${folder}")
  foreach(header IN LISTS headers)
    get_filename_component(name "${header}" NAME)
    file(CREATE_LINK "${header}" "${root}/${folder}/${name}" SYMBOLIC)
  endforeach()

  if(sources)
    add_library(${target} STATIC ${sources} ${headers})
    set(scope PUBLIC)
    target_link_libraries(${target} PRIVATE orvane_compiler)
  else()
    add_library(${target} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_include_directories(${target} ${scope} "${root}")
  target_link_libraries(${target} ${scope} ${ARG_DEPENDS})
  if(ARG_QT AND sources)
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
    target_compile_definitions(${target} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_KEYWORDS)
  endif()
endfunction()
