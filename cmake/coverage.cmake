# VANTORO_COVERAGE: counts what is executed of the program, see scripts/coverage-report. The counters
# are atomic, since the program's threads share them. The simulated server is not measured, and
# optimised it keeps the tests short.
option(VANTORO_COVERAGE "Count the lines and branches that are executed")
if(VANTORO_COVERAGE)
  set(is_simulator "$<IN_LIST:$<TARGET_PROPERTY:NAME>,simulator;rehearsal>")
  add_compile_options("$<IF:${is_simulator},-O1,--coverage;-fprofile-update=atomic>")
  add_link_options(--coverage)
endif()
