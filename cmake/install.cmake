# Where things go: runtime holds what a finished tool needs, development what its author needs.
include(CMakePackageConfigHelpers)

set(vornPackageDir "${CMAKE_INSTALL_LIBDIR}/cmake/vorn")

install(TARGETS vorn EXPORT vornTargets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT development
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development
)
if(TARGET vorn_host)
  install(TARGETS vorn_host EXPORT vornTargets ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development)
endif()
install(DIRECTORY include/ DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT development
  FILES_MATCHING PATTERN "*.h"
)
install(FILES docs/vorn.7 DESTINATION "${CMAKE_INSTALL_MANDIR}/man7" COMPONENT development)
install(FILES docs/guide.md docs/command-line.md DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT development)

install(EXPORT vornTargets FILE vornTargets.cmake NAMESPACE vorn:: DESTINATION "${vornPackageDir}"
  COMPONENT development
)
configure_package_config_file(cmake/vornConfig.cmake.in "${PROJECT_BINARY_DIR}/vornConfig.cmake"
  INSTALL_DESTINATION "${vornPackageDir}" NO_SET_AND_CHECK_MACRO
)
# Another minor is another namespace and another SONAME, so it satisfies nobody who asked for this one.
write_basic_package_version_file("${PROJECT_BINARY_DIR}/vornConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/vornConfig.cmake" "${PROJECT_BINARY_DIR}/vornConfigVersion.cmake"
  DESTINATION "${vornPackageDir}" COMPONENT development
)

# The way from the .pc file back to the prefix, so that an installed tree may be moved.
file(RELATIVE_PATH vornPrefixFromPc "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
string(REGEX REPLACE "/$" "" vornPrefixFromPc "${vornPrefixFromPc}")
foreach(dir LIBDIR INCLUDEDIR)
  if(IS_ABSOLUTE "${CMAKE_INSTALL_${dir}}")
    set(vornPc${dir} "${CMAKE_INSTALL_${dir}}")
  else()
    set(vornPc${dir} "\${prefix}/${CMAKE_INSTALL_${dir}}")
  endif()
endforeach()
foreach(name vorn vorn-host)
  configure_file("cmake/${name}.pc.in" "${PROJECT_BINARY_DIR}/${name}.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/${name}.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
    COMPONENT development
  )
endforeach()
