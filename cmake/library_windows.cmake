# SPDX-License-Identifier: MIT
# How pxmcc90lgc.dll is linked: exports by name and ordinal, import libraries, version resource.

# The place of a name in the list is its ordinal.
include(cmake/exports.cmake)
set(ordinal 0)
set(exports "")
foreach(name ${pxm_export_names})
  math(EXPR ordinal "${ordinal} + 1")
  string(APPEND exports "\n  ${name} @${ordinal}")
endforeach()
set(pxm_definition_file ${PROJECT_BINARY_DIR}/pxmcc90lgc.def)
configure_file(cmake/pxmcc90lgc.def.in ${pxm_definition_file} @ONLY)

set(version ${PROJECT_VERSION}.992)
string(REPLACE "." "," numbers ${version})
configure_file(frame/version.rc.in pxmcc90lgc.rc @ONLY)
enable_language(RC)
target_sources(pxmcc90lgc PRIVATE ${pxm_definition_file} ${PROJECT_BINARY_DIR}/pxmcc90lgc.rc)

set_target_properties(pxmcc90lgc PROPERTIES
  PREFIX ""
  IMPORT_PREFIX lib)
set(CMAKE_C_STANDARD_LIBRARIES "")
target_link_options(pxmcc90lgc PRIVATE
  -Wl,--entry=pxmLibraryEntry
  -Wl,--dynamicbase,--high-entropy-va,--nxcompat
  -Wl,--disable-auto-import,--disable-runtime-pseudo-reloc
  -Wl,--no-insert-timestamp)

# The import library in the form of other linkers. That of MinGW's own is made by the linker.
find_program(PXM_DLLTOOL NAMES llvm-dlltool llvm-dlltool-14 llvm-dlltool-19 NO_CMAKE_FIND_ROOT_PATH)
if(PXM_DLLTOOL)
  set(pxm_import_library ${PROJECT_BINARY_DIR}/pxmcc90lgc.lib)
  add_custom_command(OUTPUT ${pxm_import_library}
    COMMAND ${PXM_DLLTOOL} -m i386:x86-64 -d ${pxm_definition_file} -l ${pxm_import_library}
    DEPENDS ${pxm_definition_file} VERBATIM)
  add_custom_target(pxm_import_library ALL DEPENDS ${pxm_import_library})
else()
  set(pxm_import_library "")
  message(STATUS "llvm-dlltool is not there: no pxmcc90lgc.lib")
endif()
