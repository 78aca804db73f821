# SPDX-License-Identifier: MIT
# How the library's own units are compiled. A level is how kernels are compiled, a variant is a row
# of frame/variants.def. Each unit states its instructions, and takes back what the environment's
# flags may have added; no optimization crosses units: code of one level must not reach another's.

set(PXM_CODE_FLAGS
  $<$<NOT:$<CONFIG:Debug>>:-O2>
  -march=x86-64 -mtune=generic
  -mno-sse3 -mno-avx -mno-fma -mno-bmi -mno-bmi2 -mno-lzcnt -mno-popcnt -mno-movbe
  -fno-lto
  -U_FORTIFY_SOURCE               # no size is unknown here; checked copies are other code
  -fvisibility=hidden
  -fno-stack-protector            # pure computation without arrays on the stack; needs no runtime
  $<$<COMPILE_LANGUAGE:CXX>:-fno-exceptions -fno-rtti -fno-threadsafe-statics>)
if(WIN32)
  # Nothing is imported, so nothing is reached through a pointer that the loader fills.
  list(APPEND PXM_CODE_FLAGS -mcmodel=small)
else()
  list(APPEND PXM_CODE_FLAGS -fcf-protection=full)
endif()

# Scalar code stays scalar, floats are rounded at every step. Registers that a structure holds stay
# registers however many they are.
set(PXM_KERNEL_FLAGS
  -ffp-contract=off
  $<$<CXX_COMPILER_ID:GNU>:-fno-tree-vectorize>
  $<$<CXX_COMPILER_ID:GNU>:--param=sra-max-scalarization-size-Ospeed=2048>
  $<$<NOT:$<CXX_COMPILER_ID:GNU>>:-fno-vectorize;-fno-slp-vectorize>)

# Windows aligns the stack to 16 bytes, and GCC there moves registers of 32 bytes to and from it as if
# it were aligned to 32. Clang aligns it.
set(wide_stack "")
if(WIN32)
  set(wide_stack $<$<CXX_COMPILER_ID:GNU>:-Wa,-muse-unaligned-vector-move>)
endif()

# The levels. Those of SIMD define PXM_SIMD; PXM_SMALL asks for the smaller of two ways, and so do the
# flags of in-order processors: rolled loops, nothing aligned, nothing hoisted out of one.
set(in_order -DPXM_SIMD -DPXM_SMALL
  $<$<CXX_COMPILER_ID:GNU>:-fno-tree-ch;-freorder-blocks-algorithm=simple;-fno-split-loops;-fno-tree-loop-im>
  $<$<CXX_COMPILER_ID:GNU>:-falign-loops=1;-falign-jumps=1;-falign-labels=1>
  $<$<AND:$<NOT:$<CXX_COMPILER_ID:GNU>>,$<NOT:$<CONFIG:Debug>>>:-Os>)
set(pxm_level_scalar "")
set(pxm_level_sse2 -DPXM_SIMD -msse2)
set(pxm_level_sse2_in_order ${in_order} -msse2)
set(pxm_level_ssse3 -DPXM_SIMD -mssse3)
set(pxm_level_ssse3_in_order ${in_order} -mssse3)
set(pxm_level_avx -DPXM_SIMD -mavx -mprefer-vector-width=128 ${wide_stack})
# Without the last flag GCC makes wide constants from general registers, inside the loops.
set(pxm_level_avx2 -DPXM_SIMD -mavx2 -mbmi2 ${wide_stack}
  $<$<CXX_COMPILER_ID:GNU>:-mtune-ctrl=^inter_unit_moves_to_vec>)

function(pxm_add_objects name)
  add_library(${name} OBJECT ${ARGN})
  target_compile_features(${name} PRIVATE cxx_std_20)
  target_compile_options(${name} PRIVATE ${PXM_RELEASE_FLAGS} ${PXM_CODE_FLAGS} ${PXM_SANITIZER_FLAGS})
  target_compile_options(${name} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:${PXM_COVERAGE_FLAGS}>)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  set_target_properties(${name} PROPERTIES
    CXX_EXTENSIONS OFF
    POSITION_INDEPENDENT_CODE ON
    INTERPROCEDURAL_OPTIMIZATION OFF)
  pxm_warnings(${name})
  set_property(GLOBAL APPEND PROPERTY PXM_OBJECT_LIBRARIES ${name})
endfunction()

# Kernels of a level, unless they are there: a level may be named by several variants.
function(pxm_add_level name level)
  if(TARGET ${name})
    return()
  endif()
  if(NOT DEFINED pxm_level_${level})
    message(FATAL_ERROR "frame/variants.def names a level '${level}' that cmake/levels.cmake lacks")
  endif()
  pxm_add_objects(${name} ${ARGN})
  target_compile_definitions(${name} PRIVATE PXM_LEVEL=${level})
  target_compile_options(${name} PRIVATE ${PXM_KERNEL_FLAGS} ${pxm_level_${level}})
endfunction()

# The rows of the table: for each tag, pxm_kernels_<tag>, pxm_depth_kernels_<tag> and pxm_needs_<tag>,
# a list of features.
set(table ${PROJECT_SOURCE_DIR}/frame/variants.def)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${table})
file(STRINGS ${table} rows REGEX "^VARIANT\\(")
set(pxm_variants "")
set(pxm_levels "")
foreach(row ${rows})
  if(NOT row MATCHES "^VARIANT\\(([a-z0-9]+), *([a-z0-9_]+), *([a-z0-9_]+), *([A-Za-z0-9| ]+),")
    message(FATAL_ERROR "frame/variants.def: cannot read ${row}")
  endif()
  set(tag ${CMAKE_MATCH_1})
  set(pxm_kernels_${tag} ${CMAKE_MATCH_2})
  set(pxm_depth_kernels_${tag} ${CMAKE_MATCH_3})
  string(REGEX MATCHALL "feature[A-Za-z0-9]+" pxm_needs_${tag} "${CMAKE_MATCH_4}")
  list(TRANSFORM pxm_needs_${tag} REPLACE "^feature" "")
  list(APPEND pxm_variants ${tag})
  list(APPEND pxm_levels ${pxm_kernels_${tag}} ${pxm_depth_kernels_${tag}})

  pxm_add_level(kernels_${pxm_kernels_${tag}} ${pxm_kernels_${tag}}
    decode/kernels.cpp encode/kernels.cpp twist/kernels.cpp)
  pxm_add_level(depth_kernels_${pxm_depth_kernels_${tag}} ${pxm_depth_kernels_${tag}}
    depth/kernels.cpp)
  # Entries are small; what they do is done once a call.
  pxm_add_objects(entries_${tag}
    decode/entries.cpp depth/entries.cpp encode/entries.cpp twist/entries.cpp)
  target_compile_options(entries_${tag} PRIVATE $<$<NOT:$<CONFIG:Debug>>:-Os>)
  target_compile_definitions(entries_${tag} PRIVATE
    PXM_VARIANT=${tag} PXM_KERNELS=${pxm_kernels_${tag}}
    PXM_DEPTH_KERNELS=${pxm_depth_kernels_${tag}})
endforeach()
list(REMOVE_DUPLICATES pxm_levels)
