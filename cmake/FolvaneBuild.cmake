# How every target of the house is compiled, and the functions that make a folder a target.

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
target_compile_options(folvane_options INTERFACE $<$<CONFIG:Release>:-Wno-maybe-uninitialized>)
target_compile_definitions(folvane_options INTERFACE QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)

# Under FOLVANE_SANITIZE each library has a twin NAME_sanitized of the same sources beside it. It is not optimised: with
# all that is looked after, optimising would take longer than the tests gain by it.
add_library(folvane_sanitizers INTERFACE)
target_compile_options(folvane_sanitizers INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined
                                                    -fno-omit-frame-pointer -O0 -g1)
target_link_options(folvane_sanitizers INTERFACE -fsanitize=address,undefined)

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

# folvane_twins_of(RESULT item...)
#
# The items with the twin in place of each of the house's own libraries, also inside generator expressions.
function(folvane_twins_of result)
  set(items ${ARGN})
  list(TRANSFORM items REPLACE "folvane_(([a-z]+)(,|>|$))" "folvane_\\2_sanitized\\3")
  list(TRANSFORM items REPLACE "folvane_(options|sanitizers|qt)_sanitized" "folvane_\\1")
  set(${result} ${items} PARENT_SCOPE)
endfunction()

# folvane_static(NAME PCH target SOURCES file... LINKS target...)
#
# A static library of the house, and its sanitized twin where twins are wanted. The twin is compiled in few large units:
# nobody edits against it.
function(folvane_static name)
  cmake_parse_arguments(arg "" "PCH" "SOURCES;LINKS" ${ARGN})
  set(names ${name})
  if(FOLVANE_SANITIZE)
    list(APPEND names ${name}_sanitized)
  endif()
  foreach(target IN LISTS names)
    add_library(${target} STATIC ${arg_SOURCES})
    target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/src
                                                ${PROJECT_SOURCE_DIR})
    set(links ${arg_LINKS})
    set(pch ${arg_PCH})
    if(target MATCHES "_sanitized$")
      folvane_twins_of(links ${arg_LINKS})
      list(APPEND links folvane_sanitizers)
      string(APPEND pch _sanitized)
      set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 24 AUTOMOC OFF)
      # What moc makes of the headers is the same for both.
      set(mocs ${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/mocs_compilation.cpp)
      set_source_files_properties(${mocs} PROPERTIES GENERATED ON)
      target_sources(${target} PRIVATE ${mocs})
      add_dependencies(${target} ${name}_autogen)
    endif()
    target_link_libraries(${target} PUBLIC folvane_options Qt6::Core ${links})
    target_precompile_headers(${target} REUSE_FROM ${pch})
  endforeach()
endfunction()

# folvane_folder(NAME [WIDGETS] [DEPENDS target...])
#
# Makes the library folvane_NAME of all sources in and below the calling folder, WIDGETS with Qt's widgets. Folders name
# the folders they build on; a check in the test run holds the includes to that order.
function(folvane_folder name)
  cmake_parse_arguments(arg "WIDGETS" "" "DEPENDS" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h
       ${CMAKE_CURRENT_SOURCE_DIR}/*.qrc)
  if(arg_WIDGETS)
    folvane_static(folvane_${name} PCH folvane_widgets_pch SOURCES ${sources}
                   LINKS ${arg_DEPENDS} Qt6::Widgets Qt6::Svg)
  else()
    folvane_static(folvane_${name} PCH folvane_core_pch SOURCES ${sources} LINKS ${arg_DEPENDS})
  endif()
endfunction()
