# What Windows shows of a program and asks of it: icon, version, manifest.
#
#   orvane_windows_resources(<target>)
function(orvane_windows_resources target)
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

# The folder that runs on any Windows machine: the program, stripped, and all that it loads.
#
#   orvane_windows_program_folder(<target> <folder>)
function(orvane_windows_program_folder target folder)
  set(libraries ${ORVANE_RUNTIME_LIBRARIES})
  foreach(library Core Gui Widgets)
    list(APPEND libraries $<TARGET_FILE:Qt6::${library}>)
  endforeach()
  set(translation /usr/share/qt6/translations/qtbase_de.qm)
  # Where Windows is dark, the program is, too.
  set(settings "${CMAKE_CURRENT_BINARY_DIR}/qt.conf")
  file(GENERATE OUTPUT "${settings}" CONTENT
    "[Paths]\nPrefix = .\nPlugins = .\n[Platforms]\nWindowsArguments = darkmode=2\n")
  add_custom_command(OUTPUT "${folder}/qt.conf"
    COMMAND ${CMAKE_COMMAND} -E rm -rf "${folder}"
    COMMAND ${CMAKE_COMMAND} -E make_directory "${folder}/platforms" "${folder}/translations"
    COMMAND ${CMAKE_COMMAND} -E copy $<TARGET_FILE:${target}> ${libraries} "${folder}"
    COMMAND ${CMAKE_COMMAND} -E copy $<TARGET_FILE:Qt6::QWindowsIntegrationPlugin>
      "${folder}/platforms"
    COMMAND ${CMAKE_COMMAND} -E copy "${translation}" "${folder}/translations"
    COMMAND sh -c "cd '${folder}' && exec ${CMAKE_STRIP} *.dll *.exe platforms/*.dll"
    COMMAND ${CMAKE_COMMAND} -E copy "${settings}" "${folder}"
    DEPENDS ${target} ${ORVANE_RUNTIME_LIBRARIES} "${translation}" "${settings}"
    VERBATIM
    COMMENT "Putting the program folder together")
  add_custom_target(${target}_program_folder ALL DEPENDS "${folder}/qt.conf")
endfunction()
