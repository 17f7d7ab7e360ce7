# One static library for one subject: the source folders that are named and, in each, the folder of
# the system that is built for.
#
# Headers are included as "folder/name.h". Each module gets an include root of its own that holds
# links to its own headers only, so a header of a folder that is not among the stated dependencies
# is not found: a wrong arrow between modules fails the build.
#
#   orvane_module(<target> FOLDERS <folders below src...> [DEPENDS <targets...>]
#     [USES <targets whose headers its users do not see...>])
#
# Qt comes from the list in OrvaneQt.cmake and not from DEPENDS.
function(orvane_module target)
  cmake_parse_arguments(ARG "" "" "FOLDERS;DEPENDS;USES" ${ARGN})
  set(root "${CMAKE_BINARY_DIR}/include/${target}")
  file(REMOVE_RECURSE "${root}")
  set(sources)
  set(headers)
  set(qt)
  foreach(folder IN LISTS ARG_FOLDERS)
    foreach(place "${folder}" "${folder}/${ORVANE_SYSTEM}")
      set(dir "${CMAKE_SOURCE_DIR}/src/${place}")
      file(GLOB found CONFIGURE_DEPENDS "${dir}/*.cpp")
      list(APPEND sources ${found})
      file(GLOB found CONFIGURE_DEPENDS "${dir}/*.h")
      list(APPEND headers ${found})
      file(MAKE_DIRECTORY "${root}/${place}")
      foreach(header IN LISTS found)
        get_filename_component(name "${header}" NAME)
        file(CREATE_LINK "${header}" "${root}/${place}/${name}" SYMBOLIC)
      endforeach()
      orvane_qt_of("${place}" libraries)
      list(APPEND qt ${libraries})
    endforeach()
  endforeach()

  if(sources)
    add_library(${target} STATIC ${sources} ${headers})
    set(scope PUBLIC)
    target_link_libraries(${target} PRIVATE orvane_compiler ${ARG_USES})
    add_dependencies(${target} orvane_header_rules)
  else()
    add_library(${target} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_include_directories(${target} ${scope} "${root}")
  target_link_libraries(${target} ${scope} ${ARG_DEPENDS} ${qt})
  if(qt AND sources)
    set_target_properties(${target} PROPERTIES AUTOMOC ON)
    target_compile_definitions(${target} PRIVATE QT_NO_CAST_FROM_ASCII QT_NO_KEYWORDS)
  endif()
endfunction()
