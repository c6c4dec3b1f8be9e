# Registers a GoogleTest program with ctest, one entry per test suite. CMake's own discovery knows
# only an entry per test, and starting a program under Wine takes longer (half a second and more) than
# nearly all tests; a suite is small enough to name the fault.

# tallyrun_add_tests(TARGET PREFIX [RUNNER COMMAND...] [PROPERTIES PROPERTY VALUE...]): each suite of
# the program becomes the test "PREFIX.Suite", started by RUNNER, or else by what starts programs of
# the target system. The suites are asked for when ctest starts, so that no build has to run a
# program of another system.
function(tallyrun_add_tests target prefix)
  cmake_parse_arguments(PARSE_ARGV 2 with "" "" "RUNNER;PROPERTIES")
  if(NOT with_RUNNER)
    set(with_RUNNER ${CMAKE_CROSSCOMPILING_EMULATOR})
  endif()
  set(script ${CMAKE_CURRENT_BINARY_DIR}/${target}_suites.cmake)
  file(GENERATE OUTPUT ${script} CONTENT
"set(program \"$<TARGET_FILE:${target}>\")
set(emulator \"${CMAKE_CROSSCOMPILING_EMULATOR}\")
set(runner \"${with_RUNNER}\")
set(prefix \"${prefix}\")
set(properties \"${with_PROPERTIES}\")
include(\"${PROJECT_SOURCE_DIR}/cmake/AddSuitesOfProgram.cmake\")
")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${script})
endfunction()
