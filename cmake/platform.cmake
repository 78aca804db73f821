# SPDX-License-Identifier: MIT
# What the library can be built for. Elsewhere the configuration ends with a line that says why.

if(NOT CMAKE_CXX_COMPILER_ID MATCHES "^(GNU|Clang)$")
  message(FATAL_ERROR "pxmcc90lgc is built by GCC or Clang, not by ${CMAKE_CXX_COMPILER_ID}")
endif()

# What the compiler is for is known to its preprocessor alone.
include(CheckCXXSourceCompiles)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
check_cxx_source_compiles("
#if !defined __x86_64__ || defined __ILP32__
#error
#endif" PXM_FOR_X86_64)
check_cxx_source_compiles("
#if !defined __ELF__ && !defined _WIN32
#error
#endif" PXM_FOR_ELF_OR_PE)
unset(CMAKE_TRY_COMPILE_TARGET_TYPE)
if(NOT PXM_FOR_X86_64)
  message(FATAL_ERROR "pxmcc90lgc is for 64-bit x86; the compiler makes code for another processor")
endif()
if(NOT PXM_FOR_ELF_OR_PE)
  message(FATAL_ERROR "pxmcc90lgc is for ELF and Windows; the compiler makes objects of another format")
endif()
