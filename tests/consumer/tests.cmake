# SPDX-License-Identifier: MIT
# The library as its users meet it, one test each. Included by tests/CMakeLists.txt: the directory's own
# CMakeLists.txt is that of a consumer.
find_program(PXM_CCACHE ccache)

function(pxm_add_consumer name)
  add_test(NAME consumer.${name} COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/consumer/run ${ARGN})
  set_tests_properties(consumer.${name} PROPERTIES
    LABELS full TIMEOUT 300 SKIP_RETURN_CODE 77
    ENVIRONMENT "CMAKE=${CMAKE_COMMAND};GENERATOR=${CMAKE_GENERATOR};SOURCE_DIR=${PROJECT_SOURCE_DIR};BUILD=${PROJECT_BINARY_DIR};WORK=${PROJECT_BINARY_DIR}/consumer;CC=${CMAKE_C_COMPILER};CXX=${CMAKE_CXX_COMPILER};CCACHE=$<$<BOOL:${PXM_CCACHE}>:${PXM_CCACHE}>")
endfunction()

# What the others use.
foreach(kind shared static)
  pxm_add_consumer(install-${kind} install-${kind})
  set_tests_properties(consumer.install-${kind} PROPERTIES FIXTURES_SETUP ${kind})
endforeach()
set_tests_properties(consumer.install-static PROPERTIES PROCESSORS 2)

foreach(kind shared static)
  pxm_add_consumer(find_package-${kind} find_package ${kind})
  set(tests consumer.find_package-${kind})
  foreach(compiler gcc-12 clang-14 clang-19)
    string(REPLACE "-" ";" words ${compiler})
    pxm_add_consumer(pkg-config-${kind}-${compiler} pkg-config ${kind} ${words})
    list(APPEND tests consumer.pkg-config-${kind}-${compiler})
  endforeach()
  set_tests_properties(${tests} PROPERTIES FIXTURES_REQUIRED ${kind})
endforeach()
foreach(step static-library-has-102-global-symbols static-library-starts)
  pxm_add_consumer(${step} ${step})
  set_tests_properties(consumer.${step} PROPERTIES FIXTURES_REQUIRED static)
endforeach()

# After the static library, whose objects the cache has.
foreach(step add_subdirectory FetchContent)
  pxm_add_consumer(${step} ${step})
  set_tests_properties(consumer.${step} PROPERTIES FIXTURES_REQUIRED static PROCESSORS 2)
endforeach()

foreach(step rejects-m32 rejects-mx32 rejects-aarch64)
  pxm_add_consumer(${step} ${step})
endforeach()
