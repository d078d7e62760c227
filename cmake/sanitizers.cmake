# VANTORO_SANITIZE: "address,undefined" or "thread"; empty for none.
set(VANTORO_SANITIZE "" CACHE STRING "Sanitizers to build everything with")
if(VANTORO_SANITIZE)
  add_compile_options(-fsanitize=${VANTORO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VANTORO_SANITIZE})
endif()
# For tests that a checker makes slow, or that it has to look away from. The compilers' own macros
# differ.
if(VANTORO_SANITIZE MATCHES "address")
  add_compile_definitions(VANTORO_CHECKS_ADDRESSES)
elseif(VANTORO_SANITIZE MATCHES "thread")
  add_compile_definitions(VANTORO_CHECKS_THREADS)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # The operator new of its runtime cannot be replaced: it stands in for that of the tests that
    # count allocations, which find none then.
    add_link_options(-Wl,-z,muldefs)
  endif()
endif()
