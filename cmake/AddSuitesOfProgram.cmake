# Read by ctest, not by the configuration. Takes program, emulator, runner, prefix and
# properties; see TestSuites.cmake.
if(NOT EXISTS "${program}")
  add_test(${prefix}.NOT_BUILT "${program}")
  return()
endif()

set(list "${program}.suites")
if("${program}" IS_NEWER_THAN "${list}")
  execute_process(COMMAND ${emulator} "${program}" --gtest_list_tests
    OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "Can't list the tests of ${program}: ${result}\n${output}${errors}")
  endif()
  file(WRITE "${list}" "${output}")
endif()

# A suite's line starts at the margin and ends in a point, and in a comment when it is typed. Its
# tests stand below it, indented.
file(STRINGS "${list}" suites REGEX "^[A-Za-z0-9_/]+\\.")
foreach(suite IN LISTS suites)
  string(REGEX REPLACE "^([A-Za-z0-9_/]+)\\..*" "\\1" suite "${suite}")
  add_test(${prefix}.${suite} ${runner} "${program}" "--gtest_filter=${suite}.*")
  set_tests_properties(${prefix}.${suite} PROPERTIES TIMEOUT 300 ${properties})
endforeach()
