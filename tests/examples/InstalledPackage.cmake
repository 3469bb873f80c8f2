# Installs BUILD below FOLDER, builds EXAMPLES against it, and runs one of them.
file(REMOVE_RECURSE ${FOLDER})
function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${ARGV} ended with ${result}: ${output}")
  endif()
endfunction()
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${FOLDER}/prefix)
run(${CMAKE_COMMAND} -S ${EXAMPLES} -B ${FOLDER}/build -G ${GENERATOR} -DCMAKE_PREFIX_PATH=${FOLDER}/prefix)
run(${CMAKE_COMMAND} --build ${FOLDER}/build)
run(${CMAKE_COMMAND} -DEXAMPLE=${FOLDER}/build/01-triangle -DPICTURE=${FOLDER}/triangle.png
  -P ${CMAKE_CURRENT_LIST_DIR}/RunExample.cmake)
# The installed host finds the installed plugin.
run(${FOLDER}/prefix/bin/txmap --list-plugins)
