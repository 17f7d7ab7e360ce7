# The system that is built for names its folders, in src and in tests, and the target of its adapters.
if(WIN32)
  set(ORVANE_SYSTEM windows)
  # Wide system calls, and nothing of the system's headers that collides with the standard library.
  add_compile_definitions(UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00)
else()
  set(ORVANE_SYSTEM linux)
endif()

# What the build of this machine makes and Windows only carries: database files.
set(ORVANE_NATIVE_BUILD "${CMAKE_SOURCE_DIR}/build/dev" CACHE PATH
  "Build folder for this machine, whose data files a cross build takes over")
