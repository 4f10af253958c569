# What has to be settled before project(): the width, and the flags of the release build.

if(VORN_TARGET STREQUAL "i386")
  if(NOT CMAKE_TOOLCHAIN_FILE AND NOT DEFINED ENV{CMAKE_TOOLCHAIN_FILE})
    # Flags given on the command line replace the initial ones, so they are extended themselves.
    if(NOT DEFINED CMAKE_CXX_FLAGS)
      string(PREPEND CMAKE_CXX_FLAGS_INIT "-m32 ")
    elseif(NOT CMAKE_CXX_FLAGS MATCHES "-m32")
      string(PREPEND CMAKE_CXX_FLAGS "-m32 ")
    endif()
    # The multilib compiler of a 64-bit machine reports that machine's folders for the libraries.
    if(EXISTS /etc/debian_version)
      set(CMAKE_CXX_LIBRARY_ARCHITECTURE i386-linux-gnu)
      set(CMAKE_LIBRARY_ARCHITECTURE i386-linux-gnu)
    endif()
  endif()
elseif(NOT VORN_TARGET STREQUAL "native")
  message(FATAL_ERROR "VORN_TARGET is i386 or native, not ${VORN_TARGET}")
endif()

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Release, Debug, RelWithDebInfo or MinSizeRel")
endif()
# -O3 makes the library larger and no faster.
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG" CACHE STRING "Flags of the release build")
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
