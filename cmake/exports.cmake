# SPDX-License-Identifier: MIT
# The exported names in the order of the list, which is that of their ordinals: pxm_export_names.

file(STRINGS frame/conversions.def rows REGEX "^[A-Z_]+\\([A-Za-z0-9]")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS frame/conversions.def)
set(pxm_export_names "")
foreach(row ${rows})
  if(NOT row MATCHES "^([A-Z_]+)\\(([A-Za-z0-9_]+)")
    message(FATAL_ERROR "frame/conversions.def: cannot read ${row}")
  endif()
  set(prefix legacy90pxmi)
  set(name ${CMAKE_MATCH_2})
  if(CMAKE_MATCH_1 MATCHES "SERVICE$")
    set(prefix legacy90pxmcc)
  endif()
  list(APPEND pxm_export_names ${prefix}${name})
endforeach()
