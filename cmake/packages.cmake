# Debian packages: the runtime named after the SONAME, so that minors live side by side, and its development
# files. scripts/package configures for /usr, which puts the files into Debian's folders of the architecture.
set(vornRuntimePackage "libvorn${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}")
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
  set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE i386)
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_NAME vorn)
set(CPACK_PACKAGE_VENDOR "The vorn authors")
set(CPACK_PACKAGE_CONTACT "The vorn authors <authors@vorn.invalid>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/debian/finish.cmake")
set(CPACK_PROJECT_CONFIG_FILE "${PROJECT_SOURCE_DIR}/cmake/debian/depends.cmake")
set(CPACK_VORN_DEBIAN_FILES "${PROJECT_SOURCE_DIR}/cmake/debian")
set(CPACK_VORN_LIBRARY "${PROJECT_BINARY_DIR}/libvorn.so.${PROJECT_VERSION}")

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
# This release of cpack knows no field for it, and writes what it is given for the priority.
set(CPACK_DEBIAN_PACKAGE_PRIORITY "optional\nMulti-Arch: same")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# Each package has its own first line; cpack would put a common one before it.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(vornDescription "Tools that parse their arguments with vorn accept options abbreviated word by
word, switches with \"no-\" forms, lists, allowed values and defaults.
")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${vornRuntimePackage})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "command-line parsing with abbreviated names
${vornDescription}
This package holds the shared library.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libvorn-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "${vornRuntimePackage} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "command-line parsing with abbreviated names - development files
${vornDescription}
This package holds the headers, the link name, what CMake and pkg-config need
to find them, and the guide.")

# What dpkg's tools write for a package that links the library: by library, and by name.
set(vornControl "${PROJECT_BINARY_DIR}/debian")
set(soname "libvorn.so.${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}")
math(EXPR bits "${CMAKE_SIZEOF_VOID_P} * 8")
file(STRINGS cmake/exports.${bits} exports)
list(TRANSFORM exports REPLACE "(.+)"
  " \\1@VORN_${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR} ${PROJECT_VERSION}")
list(JOIN exports "\n" exports)
file(WRITE "${vornControl}/symbols"
  "${soname} ${vornRuntimePackage} #MINVER#\n* Build-Depends-Package: libvorn-dev\n"
  " VORN_${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}@VORN_${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR} ${PROJECT_VERSION}\n"
  "${exports}\n")
file(WRITE "${vornControl}/shlibs"
  "libvorn ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR} ${vornRuntimePackage} (>= ${PROJECT_VERSION})\n")
file(WRITE "${vornControl}/triggers" "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA
  "${vornControl}/symbols" "${vornControl}/shlibs" "${vornControl}/triggers")

include(CPack)
