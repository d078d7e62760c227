# VANTORO_SANITIZE: "address,undefined" or "thread"; empty for none.
set(VANTORO_SANITIZE "" CACHE STRING "Sanitizers to build everything with")
if(VANTORO_SANITIZE)
  add_compile_options(-fsanitize=${VANTORO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VANTORO_SANITIZE})
endif()
