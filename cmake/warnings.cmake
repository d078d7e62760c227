# Every target of this tree compiles without a warning, and without compiler extensions.
add_library(vantoro_warnings INTERFACE)
target_compile_options(
  vantoro_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
  # GCC's -Wconversion does not include it.
  target_compile_options(vantoro_warnings INTERFACE -Wno-sign-conversion)
endif()
