# SPDX-License-Identifier: MIT
# How libpxmcc90lgc.so is linked. Its soname and the version of its names are those of the interface.
set_target_properties(pxmcc90lgc PROPERTIES
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR})

set_property(TARGET pxmcc90lgc APPEND PROPERTY LINK_DEPENDS ${PROJECT_SOURCE_DIR}/frame/exports.map)
target_link_options(pxmcc90lgc PRIVATE
  -Wl,--version-script=${PROJECT_SOURCE_DIR}/frame/exports.map
  -Wl,-z,relro,-z,now,-z,noexecstack,-z,text)
if(NOT PXMCC90LGC_SANITIZE)
  # The start files that are left out may lack the mark for indirect-branch tracking.
  target_link_options(pxmcc90lgc PRIVATE -Wl,-z,defs,-z,ibt,-z,shstk,-z,cet-report=error)
endif()
