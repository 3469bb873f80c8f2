# TX_SANITIZE names the sanitizers that everything in this build is instrumented with.
set(TX_SANITIZE "" CACHE STRING "Sanitizers, separated by semicolons, such as address;undefined;float-cast-overflow")

if(TX_SANITIZE)
  list(JOIN TX_SANITIZE "," tx_sanitizers)
  add_compile_options(-fsanitize=${tx_sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${tx_sanitizers})
  # Tests run without AddressSanitizer's eye on thread-local storage that is made late, as a plugin's would be.
  add_compile_options(-ftls-model=initial-exec)
endif()
