# Where things go: runtime holds what a finished tool needs, development what its author needs.
include(CMakePackageConfigHelpers)

set(vornPackageDir "${CMAKE_INSTALL_LIBDIR}/cmake/vorn")

install(TARGETS vorn EXPORT vornTargets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT development
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT development
)
install(DIRECTORY include/ DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT development
  FILES_MATCHING PATTERN "*.h"
)
if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/docs/vorn.7")
  # Compressed, as packages want it.
  find_program(VORN_GZIP gzip REQUIRED)
  execute_process(COMMAND "${VORN_GZIP}" -9nc docs/vorn.7 WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}"
    OUTPUT_FILE "${PROJECT_BINARY_DIR}/vorn.7.gz" COMMAND_ERROR_IS_FATAL ANY)
  install(FILES "${PROJECT_BINARY_DIR}/vorn.7.gz" DESTINATION "${CMAKE_INSTALL_MANDIR}/man7" COMPONENT development)
endif()
foreach(document guide command-line)
  if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/docs/${document}.md")
    install(FILES docs/${document}.md DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT development)
  endif()
endforeach()

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
configure_file(cmake/vorn.pc.in "${PROJECT_BINARY_DIR}/vorn.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/vorn.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
  COMPONENT development
)
