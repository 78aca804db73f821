# SPDX-License-Identifier: MIT
# GoogleTest for Windows, from the sources that Debian's package googletest installs.
find_path(PXM_GOOGLETEST_SOURCE googletest/src/gtest-all.cc
  PATHS /usr/src/googletest NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
add_subdirectory(${PXM_GOOGLETEST_SOURCE} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
