# SPDX-License-Identifier: MIT
# Warnings for our own targets; errors only where PXMCC90LGC_WERROR asks for it.
function(pxm_warnings target)
  target_compile_options(${target} PRIVATE
    $<$<COMPILE_LANGUAGE:C,CXX>:-Wall -Wextra -Wconversion>
    $<$<AND:$<COMPILE_LANGUAGE:C,CXX>,$<BOOL:${PXMCC90LGC_WERROR}>>:-Werror>)
endfunction()
