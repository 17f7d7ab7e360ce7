# Refuses headers where they do not belong: the system's own of Windows outside of a folder
# "windows", and the toolkit's in folders of src that OrvaneQt.cmake does not name.
#
# Included by the build it makes the target orvane_header_rules, which every module waits for; the
# target runs this file as a script over all sources.
if(NOT CMAKE_SCRIPT_MODE_FILE)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS RELATIVE "${CMAKE_SOURCE_DIR}"
    src/*.h src/*.cpp tests/*.h tests/*.cpp tools/*.h tools/*.cpp)
  string(REPLACE ";" "\n" list "${sources}")
  file(GENERATE OUTPUT "${CMAKE_BINARY_DIR}/header_rules/sources" CONTENT "${list}")
  list(TRANSFORM sources PREPEND "${CMAKE_SOURCE_DIR}/")
  add_custom_command(OUTPUT "${CMAKE_BINARY_DIR}/header_rules/checked"
    COMMAND "${CMAKE_COMMAND}" "-DLIST=${CMAKE_BINARY_DIR}/header_rules/sources"
      -P "${CMAKE_CURRENT_LIST_FILE}"
    COMMAND "${CMAKE_COMMAND}" -E touch "${CMAKE_BINARY_DIR}/header_rules/checked"
    DEPENDS ${sources} "${CMAKE_CURRENT_LIST_FILE}" "${CMAKE_CURRENT_LIST_DIR}/OrvaneQt.cmake"
    WORKING_DIRECTORY "${CMAKE_SOURCE_DIR}"
    COMMENT "Checking which headers are used where")
  add_custom_target(orvane_header_rules DEPENDS "${CMAKE_BINARY_DIR}/header_rules/checked")
  return()
endif()

include("${CMAKE_CURRENT_LIST_DIR}/OrvaneQt.cmake")
set(windows "windows|windowsx|windef|winbase|wingdi|winuser|winreg|winnls|winternl|winsock2?|ws2tcpip")
string(APPEND windows "|shellapi|shlobj|commctrl|dbt|dwmapi|objbase|psapi|tapi|tlhelp32|uxtheme")

set(wrong)
file(STRINGS "${LIST}" sources)
foreach(source IN LISTS sources)
  get_filename_component(folder "${source}" DIRECTORY)
  if(NOT folder MATCHES "(^|/)windows(/|$)")
    file(STRINGS "${source}" found REGEX "^ *#include <(${windows})\\.h>")
    foreach(line IN LISTS found)
      string(APPEND wrong "  ${source}: ${line} belongs into a folder \"windows\"\n")
    endforeach()
  endif()
  # src/main.cpp puts the program together, toolkit included.
  if(folder MATCHES "^src/(.+)$")
    orvane_qt_of("${CMAKE_MATCH_1}" qt)
    if(NOT qt)
      file(STRINGS "${source}" found REGEX "^ *#include <Q[A-Za-z]")
      foreach(line IN LISTS found)
        string(APPEND wrong "  ${source}: ${line} without an entry in cmake/OrvaneQt.cmake\n")
      endforeach()
    endif()
  endif()
endforeach()
if(wrong)
  message(FATAL_ERROR "Headers where they do not belong:\n${wrong}")
endif()
