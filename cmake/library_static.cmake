# SPDX-License-Identifier: MIT
# libpxmcc90lgc.a: one relocatable object whose only global symbols are the exported names, so that
# nothing of the library's inside meets the names of a program, and start-up is never left out.

if(WIN32 OR PXMCC90LGC_SANITIZE)
  message(FATAL_ERROR "the static library is for ELF, without sanitizers")
endif()
include(cmake/exports.cmake)
list(JOIN pxm_export_names "\n" lines)
set(names ${PROJECT_BINARY_DIR}/pxmcc90lgc.names)
file(GENERATE OUTPUT ${names} CONTENT "${lines}\n")

set(object ${PROJECT_BINARY_DIR}/pxmcc90lgc.o)
add_custom_command(OUTPUT ${object}
  COMMAND ${CMAKE_C_COMPILER} -r -nostdlib -o ${object} ${pxm_objects}
  COMMAND ${CMAKE_OBJCOPY} --keep-global-symbols=${names} ${object}
  DEPENDS ${pxm_objects} ${names} COMMAND_EXPAND_LISTS VERBATIM)
add_library(pxmcc90lgc STATIC ${object})
# Make has no rule for objects of other targets; they have to be there.
add_dependencies(pxmcc90lgc ${pxm_object_libraries})
set_target_properties(pxmcc90lgc PROPERTIES LINKER_LANGUAGE C)
set_source_files_properties(${object} PROPERTIES EXTERNAL_OBJECT ON GENERATED ON)
