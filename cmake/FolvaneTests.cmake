# The test programs. Each is linked twice where sanitized twins are wanted, from the same objects: the tests themselves
# are not instrumented, what they test is.

# folvane_test(NAME [EACH_DATABASE_SANITIZED] [SOURCES file...] [DEFINITIONS name=value...] DEPENDS target...)
#
# Makes the GoogleTest program test_NAME of all sources in the calling folder and SOURCES, and the test NAME, which runs
# it beside a PostgreSQL server; with twins also test_NAME_sanitized and the test NAME_sanitized. That one leaves out
# PostgreSQL: above the drivers both databases lead through the same code. EACH_DATABASE_SANITIZED leaves out nothing.
function(folvane_test name)
  cmake_parse_arguments(arg "EACH_DATABASE_SANITIZED" "" "SOURCES;DEFINITIONS;DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  set(objects test_${name}_objects)
  add_library(${objects} OBJECT ${sources} ${arg_SOURCES})
  target_include_directories(${objects} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(${objects} PRIVATE ${arg_DEFINITIONS})
  target_link_libraries(${objects} PRIVATE ${arg_DEPENDS} folvane_testsupport)
  target_precompile_headers(${objects} REUSE_FROM folvane_tests_pch)
  set_target_properties(${objects} PROPERTIES UNITY_BUILD ${FOLVANE_UNITY_TESTS} UNITY_BUILD_BATCH_SIZE 20)
  if(FOLVANE_UNITY_TESTS)
    # To the compiler the sources of a large unit are headers, whose fixtures should not be of an unnamed namespace.
    target_compile_options(${objects} PRIVATE -Wno-subobject-linkage)
  endif()

  folvane_test_program(${name} ${objects} folvane_testsupport ${arg_DEPENDS})
  if(FOLVANE_SANITIZE)
    folvane_twins_of(twins folvane_testsupport ${arg_DEPENDS})
    folvane_test_program(${name}_sanitized ${objects} ${twins} folvane_sanitizers)
    set(environment "${sanitizer_environment}")
    if(NOT arg_EACH_DATABASE_SANITIZED)
      list(APPEND environment "GTEST_FILTER=-*/PostgreSQL")
    endif()
    set_tests_properties(${name}_sanitized PROPERTIES LABELS sanitized ENVIRONMENT "${environment}")
  endif()
endfunction()

set(sanitizer_environment
    "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/support/surroundings/leaks.supp:print_suppressions=0")

# folvane_test_program(NAME OBJECTS LINK...)
function(folvane_test_program name objects)
  add_executable(test_${name} $<TARGET_OBJECTS:${objects}>)
  set_target_properties(test_${name} PROPERTIES AUTOMOC OFF AUTORCC OFF)
  target_link_libraries(test_${name} PRIVATE ${ARGN})
  add_test(NAME ${name} COMMAND ${PROJECT_SOURCE_DIR}/scripts/with-postgres $<TARGET_FILE:test_${name}>)
  set_tests_properties(${name} PROPERTIES TIMEOUT 600)
endfunction()
