# Installs BUILD below FOLDER, builds EXAMPLES against it, and runs them. GALLERY is the one of BUILD itself.
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

# What the installed system draws is what the build folder draws.
foreach(place build installed)
  file(MAKE_DIRECTORY ${FOLDER}/sheets-${place})
endforeach()
run(${GALLERY} ${FOLDER}/sheets-build)
run(${FOLDER}/build/gallery-operations ${FOLDER}/sheets-installed)
file(GLOB sheets RELATIVE ${FOLDER}/sheets-build ${FOLDER}/sheets-build/*.png)
list(LENGTH sheets count)
if(NOT count EQUAL 5)
  message(FATAL_ERROR "not five sheets: ${sheets}")
endif()
foreach(sheet ${sheets})
  run(${CMAKE_COMMAND} -E compare_files ${FOLDER}/sheets-build/${sheet} ${FOLDER}/sheets-installed/${sheet})
endforeach()

# The installed host finds the installed plugin.
run(${FOLDER}/prefix/bin/txmap --list-plugins)
