# SPDX-License-Identifier: MIT
# Runs the vcpkg port where vcpkg is not: the functions that it calls are defined here, as far as they
# matter to it. cmake -DSOURCE_DIR=... -DWORK=... -DGENERATOR=... -DLAUNCHER=... -P vcpkg.cmake
# Only a release build of the static library: a triplet may say so too.
cmake_minimum_required(VERSION 3.25)
set(PORT pxmcc90lgc)
set(CURRENT_PACKAGES_DIR ${WORK}/packages)
set(VCPKG_TARGET_IS_MINGW OFF)
file(REMOVE_RECURSE ${WORK}/packages ${WORK}/consumer)

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()
set(calls "")
macro(called name)
  list(APPEND calls ${name})
  set(calls ${calls} PARENT_SCOPE)
endmacro()

function(vcpkg_cmake_configure)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" SOURCE_PATH OPTIONS)
  run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${arg_SOURCE_PATH} -B ${WORK}/tree
    -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER}
    -DCMAKE_INSTALL_PREFIX=${CURRENT_PACKAGES_DIR} -DCMAKE_INSTALL_LIBDIR=lib ${arg_OPTIONS})
  called(configure)
endfunction()
function(vcpkg_cmake_install)
  run(${CMAKE_COMMAND} --build ${WORK}/tree --parallel 2)
  run(${CMAKE_COMMAND} --install ${WORK}/tree)
  called(install)
endfunction()
# vcpkg's own moves the package to share/${PORT}.
function(vcpkg_cmake_config_fixup)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" CONFIG_PATH "")
  if(NOT EXISTS ${CURRENT_PACKAGES_DIR}/${arg_CONFIG_PATH}/${PORT}-config.cmake)
    message(FATAL_ERROR "no CMake package in ${arg_CONFIG_PATH}")
  endif()
  called(config)
endfunction()
function(vcpkg_fixup_pkgconfig)
  if(NOT EXISTS ${CURRENT_PACKAGES_DIR}/lib/pkgconfig/${PORT}.pc)
    message(FATAL_ERROR "no ${PORT}.pc in lib/pkgconfig")
  endif()
  called(pkgconfig)
endfunction()
function(vcpkg_install_copyright)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "" FILE_LIST)
  file(READ ${arg_FILE_LIST} text)
  file(WRITE ${CURRENT_PACKAGES_DIR}/share/${PORT}/copyright "${text}")
  called(copyright)
endfunction()

set(port ${SOURCE_DIR}/packaging/vcpkg)
file(READ ${port}/vcpkg.json manifest)
string(JSON name GET ${manifest} name)
string(JSON version GET ${manifest} version)
string(JSON dependencies LENGTH ${manifest} dependencies)
file(STRINGS ${SOURCE_DIR}/CMakeLists.txt project REGEX "^project\\(")
if(NOT name STREQUAL PORT OR NOT dependencies EQUAL 2 OR
   NOT project MATCHES "^project\\(${name} VERSION ${version} ")
  message(FATAL_ERROR "vcpkg.json is for ${name} ${version}, the project is ${project}")
endif()

# vcpkg sets these to the port's own directory.
set(CMAKE_CURRENT_LIST_DIR ${port})
include(${port}/portfile.cmake)

if(NOT calls STREQUAL "configure;install;config;pkgconfig;copyright")
  message(FATAL_ERROR "the port calls ${calls}")
endif()
foreach(file include/${PORT}.h lib/libpxmcc90lgc.a share/${PORT}/usage share/${PORT}/copyright)
  if(NOT EXISTS ${CURRENT_PACKAGES_DIR}/${file})
    message(FATAL_ERROR "the port installs no ${file}")
  endif()
endforeach()
if(EXISTS ${CURRENT_PACKAGES_DIR}/share/doc)
  message(FATAL_ERROR "the port leaves share/doc")
endif()

# What `usage` says is a program's CMake code.
file(READ ${port}/usage usage)
string(REGEX MATCHALL "    [a-z_]+\\([^\n]*\\)" usage "${usage}")
list(JOIN usage "\n" usage)
file(WRITE ${WORK}/consumer/CMakeLists.txt "cmake_minimum_required(VERSION 3.16...3.25)
project(main LANGUAGES C CXX)
add_executable(main ${SOURCE_DIR}/tests/consumer/main.c)
${usage}
")
run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${WORK}/consumer -B ${WORK}/consumer/build
  -DCMAKE_PREFIX_PATH=${CURRENT_PACKAGES_DIR})
run(${CMAKE_COMMAND} --build ${WORK}/consumer/build)
run(${WORK}/consumer/build/main)
