# SPDX-License-Identifier: MIT
# vcpkg install pxmcc90lgc --overlay-ports=packaging/vcpkg
# The port takes the source that it lies in. One in a tree of ports gets SOURCE_PATH from vcpkg_from_git
# or vcpkg_from_github, with the address of a release; the rest stays.
get_filename_component(SOURCE_PATH "${CMAKE_CURRENT_LIST_DIR}/../.." ABSOLUTE)

if(VCPKG_TARGET_IS_MINGW)
  vcpkg_check_linkage(ONLY_DYNAMIC_LIBRARY)
endif()

vcpkg_cmake_configure(SOURCE_PATH "${SOURCE_PATH}" OPTIONS -DPXMCC90LGC_INSTALL=ON)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(CONFIG_PATH lib/cmake/pxmcc90lgc)
vcpkg_fixup_pkgconfig()

file(REMOVE_RECURSE
  "${CURRENT_PACKAGES_DIR}/debug/include"
  "${CURRENT_PACKAGES_DIR}/debug/share"
  "${CURRENT_PACKAGES_DIR}/share/doc")
file(INSTALL "${CMAKE_CURRENT_LIST_DIR}/usage" DESTINATION "${CURRENT_PACKAGES_DIR}/share/${PORT}")
vcpkg_install_copyright(FILE_LIST "${SOURCE_PATH}/LICENSE")
