# SPDX-License-Identifier: MIT
# How the library's own units are compiled. Each unit states its instruction level, and takes back
# what the environment's flags may have added; no optimization crosses units: code of one variant
# must not reach another's.

set(PXM_CODE_FLAGS
  $<$<NOT:$<CONFIG:Debug>>:-O2>
  -march=x86-64 -mtune=generic
  -mno-sse3 -mno-avx -mno-fma -mno-bmi -mno-bmi2 -mno-lzcnt -mno-popcnt -mno-movbe
  -fno-lto
  -fcf-protection=full
  -fvisibility=hidden
  -fno-stack-protector            # pure computation without arrays on the stack; needs no runtime
  $<$<COMPILE_LANGUAGE:CXX>:-fno-exceptions -fno-rtti -fno-threadsafe-statics>)

# "Plain" code stays plain, floats are rounded at every step. Registers that a structure holds stay
# registers however many they are.
set(PXM_KERNEL_FLAGS
  -ffp-contract=off
  $<$<CXX_COMPILER_ID:GNU>:-fno-tree-vectorize>
  $<$<CXX_COMPILER_ID:GNU>:--param=sra-max-scalarization-size-Ospeed=2048>
  $<$<NOT:$<CXX_COMPILER_ID:GNU>>:-fno-vectorize;-fno-slp-vectorize>)

function(pxm_add_objects name)
  add_library(${name} OBJECT ${ARGN})
  target_compile_features(${name} PRIVATE cxx_std_20)
  target_compile_options(${name} PRIVATE ${PXM_CODE_FLAGS} ${PXM_SANITIZER_FLAGS})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
  set_target_properties(${name} PROPERTIES
    CXX_EXTENSIONS OFF
    POSITION_INDEPENDENT_CODE ON
    INTERPROCEDURAL_OPTIMIZATION OFF)
  pxm_warnings(${name})
  set_property(GLOBAL APPEND PROPERTY PXM_OBJECT_LIBRARIES ${name})
endfunction()

# Units of a variant, compiled with its tag. `text` is what makes it differ from its neighbours;
# plain code has none. A unit is compiled at the level that its kernels use, not at that of the
# processor: compilers put what they are given everywhere.
function(pxm_add_units name tag text level)
  pxm_add_objects(${name} ${ARGN})
  target_compile_definitions(${name} PRIVATE PXM_VARIANT=${tag})
  if(text)
    target_compile_definitions(${name} PRIVATE PXM_VARIANT_TEXT="${text}")
  endif()
  target_compile_options(${name} PRIVATE ${PXM_KERNEL_FLAGS} ${level})
endfunction()

# A variant in lanes, with further units of its own. Its depth conversions have a level of their own.
function(pxm_vector_variant tag text level depth_level)
  pxm_add_units(variant_${tag} ${tag} ${text} "${level}"
    vector/decode.cpp
    vector/encode.cpp
    vector/twist.cpp
    ${ARGN})
  pxm_add_units(variant_${tag}_depth ${tag} ${text} "${depth_level}" vector/depth.cpp)
endfunction()
