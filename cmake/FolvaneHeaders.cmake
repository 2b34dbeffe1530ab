# The proof that every header compiles alone: the target folvane_headers, one tiny source per header.
#
# Built without precompiled headers, which would hide a missing include.
function(folvane_check_headers)
  set(folders include src components host tests/support)
  list(TRANSFORM folders PREPEND ${PROJECT_SOURCE_DIR}/)
  list(TRANSFORM folders APPEND /*.h)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} ${folders})
  set(sources)
  foreach(header IN LISTS headers)
    # In the folders that precompile nothing the first thing that a source reads is its own header: see .clang-format.
    string(REGEX REPLACE "h$" "cpp" own_source ${header})
    if(header MATCHES "^src/(base|data|catalogue)/" AND EXISTS ${PROJECT_SOURCE_DIR}/${own_source})
      continue()
    endif()
    set(source ${CMAKE_CURRENT_BINARY_DIR}/headers/${header}.cpp)
    # Twice, so that a missing guard shows as well.
    file(CONFIGURE OUTPUT ${source} CONTENT "#include \"@header@\"\n#include \"@header@\"\n" @ONLY)
    list(APPEND sources ${source})
  endforeach()
  add_library(folvane_headers OBJECT ${sources})
  set_target_properties(folvane_headers PROPERTIES AUTOMOC OFF AUTORCC OFF)
  target_compile_options(folvane_headers PRIVATE -O0 -g0)
  target_include_directories(folvane_headers PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include
                                                     ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(folvane_headers PRIVATE folvane_options Qt6::Widgets Qt6::Svg Qt6::Test GTest::gmock
                                                SQLite::SQLite3 ODBC::ODBC)
endfunction()
