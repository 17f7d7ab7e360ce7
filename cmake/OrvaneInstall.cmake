# What the packages of this system hold: the dialer with the files that host installations get from
# it, and the demo host beside it.
include(GNUInstallDirs)

install(TARGETS orvane-demo-host RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
# The programs that read Jet files stand together; users reach what they call through links.
install(TARGETS orvane orvane-jet-reader orvane-jet-umwandeln
  RUNTIME DESTINATION "${CMAKE_INSTALL_LIBEXECDIR}/orvane")
install(FILES "${CMAKE_BINARY_DIR}/data/VPB.rgt" "${CMAKE_BINARY_DIR}/data/TelList.fdb"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/orvane")
install(FILES "${CMAKE_BINARY_DIR}/data/orvane.png"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/256x256/apps")
install(DIRECTORY tools/sip/ DESTINATION "${CMAKE_INSTALL_DATADIR}/orvane-demo-host/sip"
  FILES_MATCHING PATTERN "*.xml")
install(FILES packaging/linux/orvane-demo-host.desktop
  DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
