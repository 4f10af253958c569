# A toolchain file: 32-bit x86 with the compiler of a 64-bit machine. The preset i386 uses it.

# Flags given on the command line replace the initial ones, so they are extended themselves.
if(NOT DEFINED CMAKE_CXX_FLAGS)
  set(CMAKE_CXX_FLAGS_INIT -m32)
elseif(NOT CMAKE_CXX_FLAGS MATCHES "-m32")
  string(PREPEND CMAKE_CXX_FLAGS "-m32 ")
endif()
# Such a compiler reports its own machine's folders for the libraries.
if(EXISTS /etc/debian_version)
  set(CMAKE_CXX_LIBRARY_ARCHITECTURE i386-linux-gnu)
  set(CMAKE_LIBRARY_ARCHITECTURE i386-linux-gnu)
endif()

# Only linking a program tells whether the 32-bit C++ runtime is there.
get_property(isTrial GLOBAL PROPERTY IN_TRY_COMPILE)
if(NOT isTrial AND NOT CMAKE_CXX_COMPILER_LOADED)
  set(compiler "$ENV{CXX}")
  if(CMAKE_CXX_COMPILER)
    set(compiler "${CMAKE_CXX_COMPILER}")
  elseif(NOT compiler)
    set(compiler c++)
  endif()
  set(trial "${CMAKE_BINARY_DIR}/CMakeFiles/i386_trial")
  file(WRITE "${trial}.cpp" "#include <string>\nint main() {}\n")
  execute_process(COMMAND "${compiler}" -m32 "${trial}.cpp" -o "${trial}" RESULT_VARIABLE code ERROR_QUIET)
  if(NOT code EQUAL 0)
    message(FATAL_ERROR "${compiler} does not build 32-bit programs here. Install its 32-bit runtime (on Debian and "
      "Ubuntu: apt-get install g++-multilib), or build for this machine: cmake --preset native")
  endif()
endif()
