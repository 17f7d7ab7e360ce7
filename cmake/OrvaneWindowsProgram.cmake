# What Windows shows of a program and asks of it: icon, version, manifest.
#
#   orvane_windows_resources(<target>)
function(orvane_windows_resources target)
  enable_language(RC)
  set(icon_file "${CMAKE_BINARY_DIR}/data/orvane.ico")
  string(REPLACE "." "," version_numbers "${PROJECT_VERSION}.0")
  foreach(name orvane.rc orvane.manifest)
    configure_file("${CMAKE_SOURCE_DIR}/packaging/windows/${name}.in"
      "${CMAKE_CURRENT_BINARY_DIR}/${name}" @ONLY)
  endforeach()
  target_sources(${target} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}/orvane.rc")
  set_source_files_properties("${CMAKE_CURRENT_BINARY_DIR}/orvane.rc" PROPERTIES
    OBJECT_DEPENDS "${icon_file};${CMAKE_CURRENT_BINARY_DIR}/orvane.manifest")
  add_dependencies(${target} orvane_data_orvane.ico)
endfunction()
