# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

# CTest includes this file before it runs tests.
cmake_policy(VERSION 3.25)

# merovinska_add_suites(PROGRAM PREFIX UNIT PROPERTIES...): one CTest entry for each suite of a program
# of tests or, if UNIT is "test", for each test. Their names are read from the program, and again only
# after it was linked again, because asking all programs takes seconds.
function(merovinska_add_suites program prefix unit)
  cmake_path(GET program STEM name)
  if(NOT EXISTS "${program}")
    add_test("${prefix}${name}_is_not_built" "${program}")
    return()
  endif()
  set(list "${program}.${unit}s")
  if(NOT EXISTS "${list}" OR "${program}" IS_NEWER_THAN "${list}")
    execute_process(COMMAND "${program}" --gtest_list_tests
      OUTPUT_VARIABLE output RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
      message(FATAL_ERROR "${program} cannot list its tests:\n${output}")
    endif()
    # A suite is a line that ends with a full stop, its tests are the indented lines after it. The
    # value of a parameter may follow after a #.
    string(REGEX REPLACE "[[;]|]" "" output "${output}")
    string(REPLACE "\n" ";" lines "${output}")
    set(names)
    foreach(line IN LISTS lines)
      if(line MATCHES "^([^ ]+\\.)( *#.*)?$")
        set(suite "${CMAKE_MATCH_1}")
        if(unit STREQUAL "suite")
          list(APPEND names "${suite}*")
        endif()
      elseif(unit STREQUAL "test" AND line MATCHES "^  ([^ ]+)")
        list(APPEND names "${suite}${CMAKE_MATCH_1}")
      endif()
    endforeach()
    if(NOT names)
      message(FATAL_ERROR "${program} lists no tests:\n${output}")
    endif()
    file(WRITE "${list}" "${names}")
  endif()
  file(READ "${list}" names)
  foreach(name IN LISTS names)
    string(REGEX REPLACE "\\.\\*$" "" entry "${prefix}${name}")
    add_test("${entry}" "${program}" "--gtest_filter=${name}")
    set_tests_properties("${entry}" PROPERTIES ${ARGN})
  endforeach()
endfunction()
