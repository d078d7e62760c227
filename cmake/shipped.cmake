# What is shipped runs on Windows Server 2003 (5.2) and later. winpthreads, which the compiler's posix
# thread model links in, needs calls of Windows 6.0, so the shipped code is compiled and linked with the
# win32 thread model. That one has no std::thread and no std::mutex, which the tests use: everything
# else has the posix thread model and objects of its own. A target of one kind must not link a library
# of the other.
set(win32_threads ${CMAKE_CURRENT_LIST_DIR}/win32-threads)

function(add_shipped_library name)
  add_library(${name} STATIC ${ARGN})
  set_target_properties(${name} PROPERTIES CXX_COMPILER_LAUNCHER ${win32_threads})
  target_compile_options(${name} PRIVATE -fstack-protector-strong)
  target_link_libraries(${name} PRIVATE vantoro_warnings)
endfunction()

# What follows the name are sources, after WIN32 for a program with windows. It becomes
# build/windows/NAME.exe; tests/windows/check_program_file holds it to all this.
function(add_shipped_program name)
  add_executable(${name} ${ARGN})
  set_target_properties(${name} PROPERTIES CXX_COMPILER_LAUNCHER ${win32_threads}
                                           CXX_LINKER_LAUNCHER ${win32_threads}
                                           RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
  target_compile_options(${name} PRIVATE -fstack-protector-strong)
  target_link_libraries(${name} PRIVATE vantoro_warnings)
  target_link_options(${name} PRIVATE -fstack-protector-strong -s -Wl,--no-insert-timestamp
                      -Wl,--dynamicbase,--high-entropy-va,--nxcompat
                      -Wl,--major-os-version,5,--minor-os-version,2
                      -Wl,--major-subsystem-version,5,--minor-subsystem-version,2)
endfunction()
