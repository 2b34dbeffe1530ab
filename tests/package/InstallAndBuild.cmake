# Installs the build into an empty prefix, builds the consumer against it and runs that.
function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(REMOVE_RECURSE ${work})
run(${CMAKE_COMMAND} --install ${build} --prefix ${work}/prefix)
run(${CMAKE_COMMAND} -S ${consumer} -B ${work}/build -G Ninja -D CMAKE_PREFIX_PATH=${work}/prefix
    -D CMAKE_FIND_USE_PACKAGE_REGISTRY=OFF -D CMAKE_CXX_FLAGS=${flags})
run(${CMAKE_COMMAND} --build ${work}/build)
run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${work}/build/consumer)
file(REMOVE_RECURSE ${work})
