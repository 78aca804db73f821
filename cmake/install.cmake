# SPDX-License-Identifier: MIT
# Header, library, CMake package, pkg-config file and licence; for Windows, a zip of them.

include(CMakePackageConfigHelpers)

install(TARGETS pxmcc90lgc EXPORT pxmcc90lgc)
if(WIN32)
  install(FILES ${pxm_definition_file} ${pxm_import_library} DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()
install(FILES include/pxmcc90lgc.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(EXPORT pxmcc90lgc
  NAMESPACE pxmcc90lgc::
  FILE pxmcc90lgc-config.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/pxmcc90lgc)

write_basic_package_version_file(pxmcc90lgc-config-version.cmake COMPATIBILITY SameMajorVersion)

# Relative, so that an installed tree can be moved.
file(RELATIVE_PATH PXM_PKGCONFIG_TO_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
configure_file(cmake/pxmcc90lgc.pc.in pxmcc90lgc.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/pxmcc90lgc-config-version.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/pxmcc90lgc)
install(FILES ${PROJECT_BINARY_DIR}/pxmcc90lgc.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME pxmcc90lgc-${PROJECT_VERSION}-windows-x86_64)
  include(CPack)
endif()
