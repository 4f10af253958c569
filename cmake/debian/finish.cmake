# Run by cpack when the files of both packages stand in their folders: adds what Debian wants beside them.
find_program(GZIP gzip REQUIRED)

file(GLOB_RECURSE manPages "${CPACK_TEMPORARY_DIRECTORY}/*/man/man?/*.[1-9]")

foreach(component RUNTIME DEVELOPMENT)
  string(TOLOWER ${component} folder)
  set(package ${CPACK_DEBIAN_${component}_PACKAGE_NAME})
  set(documents "${CPACK_TEMPORARY_DIRECTORY}/${folder}/usr/share/doc/${package}")
  file(MAKE_DIRECTORY "${documents}")
  configure_file("${CPACK_VORN_DEBIAN_FILES}/copyright" "${documents}/copyright" COPYONLY)
  configure_file("${CPACK_VORN_DEBIAN_FILES}/changelog" "${documents}/changelog.Debian" COPYONLY)
  list(APPEND manPages "${documents}/changelog.Debian")
endforeach()

foreach(file IN LISTS manPages)
  # Without name and time the same text gives the same bytes, as files shared by architectures must.
  execute_process(COMMAND "${GZIP}" -9nf "${file}" COMMAND_ERROR_IS_FATAL ANY)
  file(CHMOD "${file}.gz" PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
endforeach()
