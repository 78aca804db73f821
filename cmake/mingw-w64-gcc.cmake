# SPDX-License-Identifier: MIT
# Toolchain for Windows: MinGW-w64's GCC, with the threads that the C++ library has classes for.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)
