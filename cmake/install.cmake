# SPDX-License-Identifier: MIT
# What is installed, in four components: library, development, documentation, programs.
# To uninstall: xargs rm <install_manifest.txt, in the build tree.

include(CMakePackageConfigHelpers)

install(TARGETS pxmcc90lgc EXPORT pxmcc90lgc
  RUNTIME COMPONENT library
  LIBRARY COMPONENT library NAMELINK_COMPONENT development
  ARCHIVE COMPONENT development)
if(WIN32)
  install(FILES ${pxm_definition_file} ${pxm_import_library} DESTINATION ${CMAKE_INSTALL_LIBDIR}
    COMPONENT development)
endif()
if(NOT PXMCC90LGC_DEBIAN)  # its packages have the licence in a form of their own
  install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT library)
endif()
install(FILES include/pxmcc90lgc.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)
install(EXPORT pxmcc90lgc
  NAMESPACE pxmcc90lgc::
  FILE pxmcc90lgc-config.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/pxmcc90lgc
  COMPONENT development)

write_basic_package_version_file(pxmcc90lgc-config-version.cmake COMPATIBILITY SameMajorVersion)

# Relative, so that an installed tree can be moved.
file(RELATIVE_PATH PXM_PKGCONFIG_TO_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/pxmcc90lgc.pc.in pxmcc90lgc.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/pxmcc90lgc-config-version.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/pxmcc90lgc COMPONENT development)
install(FILES ${PROJECT_BINARY_DIR}/pxmcc90lgc.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

# As in the source, so that links between pages lead somewhere.
install(FILES README.md CHANGELOG.md CONTRIBUTING.md SECURITY.md
  DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation)
install(DIRECTORY docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/docs COMPONENT documentation
  FILES_MATCHING PATTERN "*.md" PATTERN "*.png" PATTERN "*.svg")
if(PXMCC90LGC_SITE)
  install(DIRECTORY ${PXMCC90LGC_SITE}/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/html
    COMPONENT documentation)
endif()

if(PXMCC90LGC_DEBIAN)
  include(cmake/debian.cmake)
elseif(WIN32 AND pxm_is_top_level)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME pxmcc90lgc-${PROJECT_VERSION}-windows-x86_64)
  set(CPACK_ARCHIVE_COMPONENT_INSTALL OFF)
  include(CPack)
endif()
