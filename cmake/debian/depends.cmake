# Read by cpack. The runtime's dependencies come from the symbol versions that the library asks for, and not from
# dpkg-shlibdeps: with a multilib compiler that names the 64-bit system's 32-bit copies (lib32stdc++6).

# Highest version of what the library needs under a prefix such as GLIBC.
function(newest_version prefix needed variable)
  string(REGEX MATCHALL "Name: ${prefix}_[0-9.]+" names "${needed}")
  list(TRANSFORM names REPLACE "^.*_" "")
  list(SORT names COMPARE NATURAL ORDER DESCENDING)
  list(GET names 0 newest)
  set(${variable} "${newest}" PARENT_SCOPE)
endfunction()

find_program(READELF readelf REQUIRED)
execute_process(COMMAND "${READELF}" --version-info --wide "${CPACK_VORN_LIBRARY}"
  OUTPUT_VARIABLE needed COMMAND_ERROR_IS_FATAL ANY)

newest_version(GLIBC "${needed}" glibc)
newest_version(GLIBCXX "${needed}" glibcxx)
# The release of the C++ runtime that brought each version.
set(releases 3.4=4.1.1 3.4.9=4.2.1 3.4.11=4.4 3.4.14=4.5 3.4.15=4.6 3.4.18=4.8 3.4.20=4.9 3.4.21=5.2 3.4.22=6
  3.4.26=9 3.4.29=11 3.4.30=12)
string(REGEX MATCH "(^|;)${glibcxx}=([0-9.]+)" found "${releases}")
if(NOT found)
  message(FATAL_ERROR "cmake/debian/depends.cmake does not know which release brought GLIBCXX_${glibcxx}")
endif()
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS
  "libc6 (>= ${glibc}), libgcc-s1 (>= 3.0), libstdc++6 (>= ${CMAKE_MATCH_2})")
