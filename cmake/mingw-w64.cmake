# SPDX-License-Identifier: MIT
# What the toolchains for Windows share.
# Programs carry the runtime of their compiler with them; the library has none.
string(APPEND CMAKE_EXE_LINKER_FLAGS_INIT " -static")
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/wine)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
list(APPEND CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
# Packages may lie where CMAKE_PREFIX_PATH says.
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
