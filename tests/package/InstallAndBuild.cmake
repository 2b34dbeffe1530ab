# Installs the build into an empty prefix and looks at it as hosts do: the demo host runs from there, and programs that
# know nothing of the source tree are built against it and run.
function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# The block of a language that stands first in a page, as a file.
function(extract page language file)
  file(READ ${page} text)
  string(FIND "${text}" "```${language}\n" begin)
  string(SUBSTRING "${text}" ${begin} -1 text)
  string(FIND "${text}" "\n" begin)
  string(FIND "${text}" "\n```\n" end)
  math(EXPR length "${end} - ${begin}")
  string(SUBSTRING "${text}" ${begin} ${length} text)
  file(WRITE ${file} "${text}\n")
endfunction()

function(build_host source)
  run(${CMAKE_COMMAND} -S ${source} -B ${source}/build -G Ninja -D CMAKE_PREFIX_PATH=${prefix}
      -D CMAKE_FIND_USE_PACKAGE_REGISTRY=OFF)
  run(${CMAKE_COMMAND} --build ${source}/build)
endfunction()

set(prefix ${work}/prefix)
set(offscreen ${CMAKE_COMMAND} -E env --unset=LD_LIBRARY_PATH QT_QPA_PLATFORM=offscreen HOME=${work}/home
    XDG_CONFIG_HOME=${work}/home)
file(REMOVE_RECURSE ${work})
run(${CMAKE_COMMAND} --install ${build} --prefix ${prefix})
foreach(name IN ITEMS LICENSE THIRD-PARTY.md)
  if(NOT EXISTS ${prefix}/share/doc/folvane/${name})
    message(FATAL_ERROR "${name} is not installed")
  endif()
endforeach()

# The installed demo host finds its library by itself, and is of the project's version.
execute_process(COMMAND ${offscreen} ${prefix}/bin/folvane-demo --version
                OUTPUT_VARIABLE told COMMAND_ERROR_IS_FATAL ANY)
if(NOT told MATCHES " ${version}\n")
  message(FATAL_ERROR "the demo host says it is ${told}")
endif()

# The installed command reads a record set in a file, and says how it ends.
foreach(arguments IN ITEMS --version "copy;${samples}/flat_Integer_states.adtg;${work}/copied.Dat")
  run(${offscreen} ${prefix}/bin/folvane-dat ${arguments})
endforeach()
run(${CMAKE_COMMAND} -E compare_files ${samples}/flat_Integer_states.adtg ${work}/copied.Dat)
execute_process(COMMAND ${offscreen} ${prefix}/bin/folvane-dat show ${prefix}/bin/folvane-dat
                OUTPUT_VARIABLE told RESULT_VARIABLE outcome ERROR_QUIET)
if(NOT outcome EQUAL 1 OR told)
  message(FATAL_ERROR "what is no record set is shown with ${outcome}: ${told}")
endif()
foreach(command IN ITEMS folvane-dat folvane-design)
  if(NOT EXISTS ${prefix}/share/man/man1/${command}.1)
    message(FATAL_ERROR "the manual of ${command} is not installed")
  endif()
endforeach()

# The installed command makes a database of a design, the example of its page, and gives it back.
extract(${docs}/designs.md yaml ${work}/design.yaml)
foreach(arguments IN ITEMS "import;${work}/design.db;${work}/design.yaml" "diff;${work}/design.db;${work}/design.yaml"
                           "check;${work}/design.db")
  run(${offscreen} ${prefix}/bin/folvane-design ${arguments})
endforeach()

# A host that looks closely.
file(COPY ${tests}/consumer DESTINATION ${work})
build_host(${work}/consumer)
run(${offscreen} ${work}/consumer/build/consumer ${prefix}/share/folvane/help.chm ${version})

# The host of the page for hosts, as it stands there. Started without a database it ends at once.
extract(${docs}/hosting.md cpp ${work}/page/main.cpp)
extract(${docs}/hosting.md cmake ${work}/page/CMakeLists.txt)
build_host(${work}/page)
execute_process(COMMAND ${offscreen} ${work}/page/build/host RESULT_VARIABLE outcome)
if(NOT outcome EQUAL 1)
  message(FATAL_ERROR "the host of the page ended with ${outcome}")
endif()

# The same without CMake.
find_program(pkg_config pkg-config)
if(pkg_config)
  file(GLOB_RECURSE description ${prefix}/folvane.pc)
  cmake_path(GET description PARENT_PATH folder)
  cmake_path(GET folder PARENT_PATH libraries)
  set(with_package ${CMAKE_COMMAND} -E env PKG_CONFIG_PATH=${folder})
  run(${with_package} ${pkg_config} --exact-version=${version} folvane)
  run(${with_package} sh -c "${compiler} -std=c++20 ${work}/page/main.cpp -o ${work}/page/plain \
      $(${pkg_config} --cflags --libs folvane sqlite3) -Wl,-rpath,${libraries}")
  execute_process(COMMAND ${offscreen} ${work}/page/plain RESULT_VARIABLE outcome)
  if(NOT outcome EQUAL 1)
    message(FATAL_ERROR "the host built with pkg-config ended with ${outcome}")
  endif()
endif()
file(REMOVE_RECURSE ${work})
