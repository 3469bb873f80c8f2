# Runs EXAMPLE, which has to write PICTURE and to print nothing but the plugin's notice.
file(REMOVE ${PICTURE})
execute_process(COMMAND ${EXAMPLE} ${PICTURE} RESULT_VARIABLE result ERROR_VARIABLE errors)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${EXAMPLE} ended with ${result}: ${errors}")
endif()
if(NOT errors STREQUAL "graphics engine create!\n")
  message(FATAL_ERROR "${EXAMPLE} printed: ${errors}")
endif()
file(SIZE ${PICTURE} size)
if(size LESS 2000)
  message(FATAL_ERROR "${PICTURE} has ${size} bytes only")
endif()

# Without a picture to write it says how it is used.
execute_process(COMMAND ${EXAMPLE} RESULT_VARIABLE result ERROR_VARIABLE errors)
if(NOT result EQUAL 2 OR NOT errors MATCHES "usage: ")
  message(FATAL_ERROR "${EXAMPLE} without arguments ended with ${result}: ${errors}")
endif()

# Where it cannot write, it says so in a line after the plugin's notice.
execute_process(COMMAND ${EXAMPLE} ${PICTURE}/nowhere.png RESULT_VARIABLE result ERROR_VARIABLE errors)
if(NOT result EQUAL 1 OR NOT errors STREQUAL "graphics engine create!\ncannot write ${PICTURE}/nowhere.png\n")
  message(FATAL_ERROR "${EXAMPLE} ended with ${result} where it cannot write: ${errors}")
endif()
