# The proof that every header compiles alone: the target folvane_headers, one tiny source per header.
#
# The public headers are read as a host reads them. The others may count on what their folder precompiles, headers of Qt
# and of the standard library; everything of the house's own they have to include. A header with a source of its own in
# the product needs no other proof: that source is compiled by itself and reads its header first, see .clang-format.
function(folvane_check_headers)
  folvane_headers_alone(public "" include)
  folvane_headers_alone(low folvane_core_pch src/base src/data src/catalogue src/design host/demo host/readymade)
  set(floors)
  foreach(folder IN ITEMS shell widgets forms records query originals reports flows archiving entry bulk browser designer)
    list(APPEND floors src/${folder})
  endforeach()
  folvane_headers_alone(high folvane_widgets_pch ${floors} components host/tour)
  folvane_headers_alone(tests folvane_tests_pch tests)
  add_custom_target(folvane_headers DEPENDS folvane_headers_public folvane_headers_low folvane_headers_high
                                            folvane_headers_tests)
endfunction()

function(folvane_headers_alone name pch)
  set(folders ${ARGN})
  list(TRANSFORM folders PREPEND ${PROJECT_SOURCE_DIR}/)
  list(TRANSFORM folders APPEND /*.h)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR} ${folders})
  set(sources)
  foreach(header IN LISTS headers)
    string(REGEX REPLACE "h$" "cpp" own_source ${header})
    if(header MATCHES "^(src|components|host)/" AND EXISTS ${PROJECT_SOURCE_DIR}/${own_source})
      continue()
    endif()
    set(source ${CMAKE_CURRENT_BINARY_DIR}/headers/${header}.cpp)
    # Twice, so that a missing guard shows as well.
    file(CONFIGURE OUTPUT ${source} CONTENT "#include \"@header@\"\n#include \"@header@\"\n" @ONLY)
    list(APPEND sources ${source})
  endforeach()
  set(target folvane_headers_${name})
  add_library(${target} OBJECT ${sources})
  set_target_properties(${target} PROPERTIES AUTOMOC OFF AUTORCC OFF EXCLUDE_FROM_ALL ON)
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include
                                               ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(${target} PRIVATE folvane_options Qt6::Widgets Qt6::Svg Qt6::Test GTest::gmock SQLite::SQLite3
                                          ODBC::ODBC)
  if(pch)
    target_precompile_headers(${target} REUSE_FROM ${pch})
  endif()
endfunction()
