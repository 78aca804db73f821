# SPDX-License-Identifier: MIT
# Toolchain for Windows: Clang, with the headers, libraries and linker of MinGW-w64's GCC.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
foreach(language C CXX ASM)
  set(CMAKE_${language}_COMPILER_TARGET x86_64-w64-windows-gnu)
endforeach()
set(CMAKE_C_COMPILER clang)
set(CMAKE_CXX_COMPILER clang++)

# Clang does not look where Debian has the files of the flavour with threads.
execute_process(COMMAND x86_64-w64-mingw32-g++-posix -print-libgcc-file-name
  OUTPUT_VARIABLE libgcc OUTPUT_STRIP_TRAILING_WHITESPACE)
get_filename_component(gcc ${libgcc} DIRECTORY)
set(CMAKE_CXX_FLAGS_INIT
  "-stdlib++-isystem ${gcc}/include/c++ -stdlib++-isystem ${gcc}/include/c++/x86_64-w64-mingw32")
# MinGW's own linker makes the DLL; it does not take what Clang makes of the C++ library's classes.
set(CMAKE_SHARED_LINKER_FLAGS_INIT "--ld-path=/usr/bin/x86_64-w64-mingw32-ld -L${gcc}")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-fuse-ld=lld -L${gcc} -lwinpthread")
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)
