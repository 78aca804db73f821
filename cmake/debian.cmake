# SPDX-License-Identifier: MIT
# Debian packages, one for each component: scripts/package configures, builds and packs.
include(cmake/exports.cmake)
find_program(PXM_GZIP gzip)
if(NOT PXM_GZIP)
  message(FATAL_ERROR "PXMCC90LGC_DEBIAN needs gzip")
endif()

# A revision below those of a distribution, which count from 1.
set(CPACK_DEBIAN_PACKAGE_RELEASE 0upstream1)
set(pxm_debian_version ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
set(pxm_package_library lib${PROJECT_NAME}${PROJECT_VERSION_MAJOR})
set(pxm_package_development lib${PROJECT_NAME}-dev)
set(pxm_package_documentation lib${PROJECT_NAME}-doc)
set(pxm_package_programs ${PROJECT_NAME}-tools)

# What every package says of itself, in its own directory. Without -n the compressed file would bear a
# name and a time.
set(debian ${PROJECT_BINARY_DIR}/debian)
set(changelog ${debian}/changelog.Debian.gz)
file(MAKE_DIRECTORY ${debian})
execute_process(COMMAND ${PXM_GZIP} -9nc packaging/debian/changelog
  WORKING_DIRECTORY ${PROJECT_SOURCE_DIR} OUTPUT_FILE ${changelog} RESULT_VARIABLE failed)
if(failed)
  message(FATAL_ERROR "packaging/debian/changelog cannot be compressed")
endif()
set(components library development documentation programs)
foreach(component ${components})
  install(FILES packaging/debian/copyright ${changelog}
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/${pxm_package_${component}}
    COMPONENT ${component})
endforeach()

# The library calls nothing, so it has no dependency.
install(FILES packaging/debian/lintian-overrides
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/lintian/overrides RENAME ${pxm_package_library}
  COMPONENT library)
if(PXMCC90LGC_SITE)
  install(FILES packaging/debian/doc-base
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc-base RENAME ${pxm_package_documentation}
    COMPONENT documentation)
endif()

# Which version of the package has each name, and that the loader's cache has to be renewed.
string(REPLACE ";" "\n " names "${pxm_export_names}")
string(REGEX REPLACE "(legacy90[A-Za-z0-9_]+)"
  "\\1@PXMCC90LGC_${PROJECT_VERSION_MAJOR} ${PROJECT_VERSION}" names "${names}")
set(soname libpxmcc90lgc.so.${PROJECT_VERSION_MAJOR})
file(WRITE ${debian}/symbols "${soname} ${pxm_package_library} #MINVER#
* Build-Depends-Package: ${pxm_package_development}
 PXMCC90LGC_${PROJECT_VERSION_MAJOR}@PXMCC90LGC_${PROJECT_VERSION_MAJOR} ${PROJECT_VERSION}
 ${names}
")
file(WRITE ${debian}/shlibs "libpxmcc90lgc ${PROJECT_VERSION_MAJOR} ${pxm_package_library}\n")

set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL ${components})
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_CONTACT "pxmcc90lgc authors <authors@pxmcc90lgc.example>")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE ${PROJECT_NAME})
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# The first line is the synopsis. CPack indents the others.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(about "Video (YCbCr and YUV; 4:4:4, 4:2:2, 4:2:0, 4:1:1) is converted to 16-bit pixels
(444, 555, 565; truncated or with an ordered dither) and back, 565 to 24
bits and back, and images by a colour twist, in 98 plain C calls. The
processor is detected at load and picks one of seven variants, up to AVX2.

")
foreach(component ${components})
  string(TOUPPER ${component} upper)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${pxm_package_${component}})
endforeach()

set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "image colour conversions for 64-bit x86
${about}This package contains the shared library.")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA
  ${debian}/shlibs ${debian}/symbols ${PROJECT_SOURCE_DIR}/packaging/debian/triggers)

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${pxm_package_library} (= ${pxm_debian_version})")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS ${pxm_package_documentation})
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "image colour conversions - development files
${about}This package contains the header and what CMake and pkg-config read.")

set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
set(CPACK_COMPONENT_DOCUMENTATION_DESCRIPTION "image colour conversions - documentation
${about}This package contains the documentation, with a page of every function.")

# The programs run with the library of the same version or a later one; dpkg-shlibdeps finds the rest.
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SECTION video)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR})
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_DEPENDS "${pxm_package_library} (>= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_PROGRAMS_DESCRIPTION "image colour conversions - programs
${about}This package contains programs: y4m2rgb turns clips into 16-bit pixels or
pictures of them, png2y4m pictures into clips, and which_variant tells which
variant a processor runs.")
include(CPack)
