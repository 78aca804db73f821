# SPDX-License-Identifier: MIT
# Manual pages of the installed programs, from what --help prints. Their date is that of
# SOURCE_DATE_EPOCH or a fixed one, never that of the build.
set(date 1795132800)
if(DEFINED ENV{SOURCE_DATE_EPOCH})
  set(date $ENV{SOURCE_DATE_EPOCH})
endif()

function(pxm_manual_page program purpose)
  set(page ${CMAKE_CURRENT_BINARY_DIR}/${program}.1)
  add_custom_command(OUTPUT ${page}
    COMMAND ${CMAKE_COMMAND} -E env SOURCE_DATE_EPOCH=${date} LC_ALL=C TZ=UTC
      ${PXM_HELP2MAN} --no-info --section=1 --name=${purpose} --version-string=${PROJECT_VERSION}
      "--source=pxmcc90lgc ${PROJECT_VERSION}" --manual=pxmcc90lgc --output=${page}
      $<TARGET_FILE:${program}>
    DEPENDS ${program} VERBATIM)
  if(PXMCC90LGC_DEBIAN)
    add_custom_command(OUTPUT ${page}.gz
      COMMAND ${PXM_GZIP} -9nkf ${page}
      DEPENDS ${page} VERBATIM)
    set(page ${page}.gz)
  endif()
  set(pages ${pages} ${page} PARENT_SCOPE)
endfunction()

set(pages "")
pxm_manual_page(y4m2rgb "turn a YUV4MPEG2 clip into 16-bit pixels, or into pictures of them")
pxm_manual_page(png2y4m "encode a picture, reduced to 16-bit pixels, as a YUV4MPEG2 clip")
pxm_manual_page(which_variant "print the variant of pxmcc90lgc that this processor runs")
add_custom_target(manual_pages ALL DEPENDS ${pages})
install(FILES ${pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT programs)
