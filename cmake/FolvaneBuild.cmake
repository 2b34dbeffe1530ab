# How every target of the house is compiled, and the one function that makes a folder a target.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
set_property(GLOBAL PROPERTY AUTOGEN_SOURCE_GROUP Generated)

find_program(FOLVANE_CCACHE ccache)
if(FOLVANE_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${FOLVANE_CCACHE})
endif()

# Two dozen test programs are linked, each of nearly everything.
find_program(FOLVANE_LLD ld.lld)
if(FOLVANE_LLD)
  add_link_options(-fuse-ld=lld)
endif()

add_library(folvane_options INTERFACE)
target_compile_options(folvane_options INTERFACE -Wall -Wextra -Werror -Wnon-virtual-dtor -Woverloaded-virtual)
# Where it optimises, this compiler takes values of std::optional that were tested for unset ones.
target_compile_options(folvane_options INTERFACE
                       $<$<OR:$<CONFIG:Release>,$<BOOL:${FOLVANE_SANITIZE}>>:-Wno-maybe-uninitialized>)
target_compile_definitions(folvane_options INTERFACE QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
if(FOLVANE_SANITIZE)
  target_compile_options(folvane_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined
                                                   -fno-omit-frame-pointer -O1)
  target_link_options(folvane_options INTERFACE -fsanitize=address,undefined)
endif()

# folvane_precompiled(NAME HEADERS header... LINKS target...)
#
# A precompiled header that targets share by REUSE_FROM: each making its own would read all of Qt as often.
function(folvane_precompiled name)
  cmake_parse_arguments(arg "" "" "HEADERS;LINKS" ${ARGN})
  file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp CONTENT "// Only for its precompiled header.\n")
  add_library(${name} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTORCC OFF)
  target_link_libraries(${name} PRIVATE folvane_options ${arg_LINKS})
  target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
endfunction()

# folvane_folder(NAME [WIDGETS] [DEPENDS target...])
#
# Makes the library folvane_NAME of all sources in and below the calling folder. WIDGETS precompiles the Qt Widgets
# headers. Folders name the folders they build on; a check in the test run holds the includes to that order.
function(folvane_folder name)
  cmake_parse_arguments(arg "WIDGETS" "" "DEPENDS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h
       ${CMAKE_CURRENT_SOURCE_DIR}/*.qrc)
  add_library(folvane_${name} STATIC ${sources})
  target_include_directories(folvane_${name} PUBLIC ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/src
                                                    ${PROJECT_SOURCE_DIR})
  target_link_libraries(folvane_${name} PUBLIC folvane_options Qt6::Core ${arg_DEPENDS})
  if(arg_WIDGETS)
    target_link_libraries(folvane_${name} PUBLIC Qt6::Widgets Qt6::Svg)
    target_precompile_headers(folvane_${name} REUSE_FROM folvane_widgets_pch)
  endif()
endfunction()

# folvane_test(NAME [DEPENDS target...])
#
# Makes the GoogleTest program test_NAME of all sources in the calling folder and the test NAME, which runs it beside a
# PostgreSQL server.
function(folvane_test name)
  cmake_parse_arguments(arg "" "" "DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  add_executable(test_${name} ${sources})
  target_include_directories(test_${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(test_${name} PRIVATE ${arg_DEPENDS} folvane_testsupport folvane_options)
  target_precompile_headers(test_${name} REUSE_FROM folvane_tests_pch)
  add_test(NAME ${name} COMMAND ${PROJECT_SOURCE_DIR}/scripts/with-postgres $<TARGET_FILE:test_${name}>)
  set_tests_properties(${name} PROPERTIES TIMEOUT 600)
endfunction()
