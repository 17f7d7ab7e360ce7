# Where in src the toolkit is used, and which of its libraries; everywhere else the program is plain
# C++. The check of the headers refuses Qt in any other folder.
set(ORVANE_QT
  "platform/channel/linux Core"
  "platform/databases Core"
  "platform/databases/jet Core"
  "platform/databases/odbc Core"
  "platform/desktop Widgets"
  "platform/desktop/linux Widgets"
  "platform/desktop/windows Widgets"
  "platform/lines/linux Network"
  "platform/native/linux Core"
  "platform/serial/linux SerialPort"
  "platform/serial/windows Core"
  "platform/settings/linux Core"
  "ui/dial Widgets"
  "ui/options Widgets"
  "ui/style Widgets")

# The Qt libraries of one folder below src.
function(orvane_qt_of folder result)
  set(libraries)
  foreach(entry IN LISTS ORVANE_QT)
    string(REPLACE " " ";" words "${entry}")
    list(POP_FRONT words place)
    if(place STREQUAL folder)
      list(TRANSFORM words PREPEND "Qt6::")
      set(libraries ${words})
    endif()
  endforeach()
  set(${result} ${libraries} PARENT_SCOPE)
endfunction()
