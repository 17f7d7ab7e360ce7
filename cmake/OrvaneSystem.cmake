# The system that is built for names its folders, in src and in tests, and the target of its adapters.
if(NOT WIN32)
  set(ORVANE_SYSTEM linux)
  return()
endif()
set(ORVANE_SYSTEM windows)
enable_language(RC)

# Wide system calls, and nothing of the system's headers that collides with the standard library.
add_compile_definitions(UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00)

# The compiler's own libraries, which the program brings along.
set(ORVANE_RUNTIME_LIBRARIES)
foreach(name libstdc++-6 libgcc_s_seh-1 libgcc_s_dw2-1 libwinpthread-1)
  execute_process(COMMAND "${CMAKE_CXX_COMPILER}" -print-file-name=${name}.dll
    OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  # What the compiler does not have it names without a folder.
  if(IS_ABSOLUTE "${file}")
    list(APPEND ORVANE_RUNTIME_LIBRARIES "${file}")
  endif()
endforeach()

# Tests run under Wine, which finds the libraries where they were built.
set(ORVANE_LIBRARY_FOLDERS)
foreach(file IN LISTS ORVANE_RUNTIME_LIBRARIES)
  get_filename_component(folder "${file}" REALPATH)
  get_filename_component(folder "${folder}" DIRECTORY)
  list(APPEND ORVANE_LIBRARY_FOLDERS "${folder}")
endforeach()
foreach(prefix IN LISTS ORVANE_WINDOWS_PREFIXES)
  list(APPEND ORVANE_LIBRARY_FOLDERS "${prefix}/bin")
endforeach()
list(REMOVE_DUPLICATES ORVANE_LIBRARY_FOLDERS)
string(REPLACE ";" ":" ORVANE_LIBRARY_FOLDERS "${ORVANE_LIBRARY_FOLDERS}")
set(CMAKE_CROSSCOMPILING_EMULATOR
  "${CMAKE_SOURCE_DIR}/scripts/windows/wine.sh" "${CMAKE_BINARY_DIR}/wine" "${ORVANE_LIBRARY_FOLDERS}")
# For scripts.
file(WRITE "${CMAKE_BINARY_DIR}/library_folders" "${ORVANE_LIBRARY_FOLDERS}\n")
