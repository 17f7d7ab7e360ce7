# Windows from Debian with the MinGW-w64 compilers that have C++ threads.
#
# ORVANE_WINDOWS_ARCH: x86_64 or i686. ORVANE_WINDOWS_PREFIXES: folders with libraries for Windows.
set(ORVANE_WINDOWS_ARCH x86_64 CACHE STRING "Architecture of the Windows programs")
set(ORVANE_WINDOWS_PREFIXES "" CACHE STRING "Folders with libraries for Windows")
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ORVANE_WINDOWS_ARCH ORVANE_WINDOWS_PREFIXES)

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR "${ORVANE_WINDOWS_ARCH}")
set(orvane_compiler_prefix "${ORVANE_WINDOWS_ARCH}-w64-mingw32")
set(CMAKE_C_COMPILER "${orvane_compiler_prefix}-gcc-posix")
set(CMAKE_CXX_COMPILER "${orvane_compiler_prefix}-g++-posix")
set(CMAKE_RC_COMPILER "${orvane_compiler_prefix}-windres")

set(CMAKE_FIND_ROOT_PATH "/usr/${orvane_compiler_prefix}" ${ORVANE_WINDOWS_PREFIXES})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# moc and its kin run on this machine.
set(QT_HOST_PATH /usr CACHE PATH "Qt of this machine")
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/${CMAKE_HOST_SYSTEM_PROCESSOR}-linux-gnu/cmake CACHE PATH
  "CMake files of this machine's Qt")
