# The warnings that all code of this project is held to.
option(TX_WARNINGS_AS_ERRORS "Treat compiler warnings as errors" OFF)

add_library(tx_warnings INTERFACE)
target_compile_options(tx_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow=compatible-local -Wnon-virtual-dtor -Woverloaded-virtual -Wold-style-cast
  -Wcast-align -Wduplicated-cond -Wlogical-op -Wuseless-cast -Wformat=2
  $<$<BOOL:${TX_WARNINGS_AS_ERRORS}>:-Werror>)
