# SPDX-License-Identifier: MIT
# The library, shared unless BUILD_SHARED_LIBS is off, and the same objects for tests that look
# inside.

get_property(pxm_object_libraries GLOBAL PROPERTY PXM_OBJECT_LIBRARIES)
list(TRANSFORM pxm_object_libraries REPLACE "(.+)" "$<TARGET_OBJECTS:\\1>" OUTPUT_VARIABLE pxm_objects)

add_library(pxm_core INTERFACE)
target_sources(pxm_core INTERFACE ${pxm_objects})
target_include_directories(pxm_core INTERFACE ${PROJECT_SOURCE_DIR})
target_link_options(pxm_core INTERFACE ${PXM_COVERAGE_FLAGS})

set(pxm_static OFF)
if(DEFINED BUILD_SHARED_LIBS AND NOT BUILD_SHARED_LIBS)
  set(pxm_static ON)
endif()
if(pxm_static)
  include(cmake/library_static.cmake)
else()
  add_library(pxmcc90lgc SHARED ${pxm_objects})
endif()
add_library(pxmcc90lgc::pxmcc90lgc ALIAS pxmcc90lgc)
target_include_directories(pxmcc90lgc PUBLIC
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)

if(pxm_static)
  return()
endif()

# Nothing of the C++ runtime is used; CMake would name it for any library with C++ units.
set(CMAKE_CXX_IMPLICIT_LINK_LIBRARIES "")

# Linked by the C driver, without start files and libraries: the library calls nothing.
set_target_properties(pxmcc90lgc PROPERTIES
  LINKER_LANGUAGE C
  INTERPROCEDURAL_OPTIMIZATION OFF)
if(PXMCC90LGC_SANITIZE)
  target_link_options(pxmcc90lgc PRIVATE ${PXM_SANITIZER_FLAGS})
else()
  target_link_options(pxmcc90lgc PRIVATE -nostartfiles -nostdlib)
endif()
if(WIN32)
  include(cmake/library_windows.cmake)
else()
  include(cmake/library_elf.cmake)
endif()
