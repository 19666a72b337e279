# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

# merovinska_python_tests(FILE [CLASSES ...] [ENVIRONMENT NAME=VALUE ...] [PROPERTIES ...]): one
# CTest entry per test of a Python file, which finds the build in the environment. CLASSES are those
# that inherit the file's tests, where these do not stand in a class of their own. Debian's
# interpreter is named in full: it has Debian's modules, whatever other one comes first on the
# search path.
function(merovinska_python_tests file)
  cmake_parse_arguments(ARG "" "" "CLASSES;ENVIRONMENT;PROPERTIES" ${ARGN})
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
  file(STRINGS ${file} lines REGEX "^(class [A-Za-z]+\\(|    def test_)")
  cmake_path(GET file STEM module)
  set(classes ${ARG_CLASSES})
  foreach(line IN LISTS lines)
    if(line MATCHES "^class ([A-Za-z]+)" AND NOT ARG_CLASSES)
      set(classes ${CMAKE_MATCH_1})
    elseif(line MATCHES "def test_([A-Za-z0-9_]+)")
      set(test ${CMAKE_MATCH_1})
      foreach(class IN LISTS classes)
        add_test(NAME ${class}.${test}
          COMMAND /usr/bin/python3 -m unittest ${module}.${class}.test_${test}
          WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
        set_tests_properties(${class}.${test} PROPERTIES
          ENVIRONMENT
            "MEROVINSKA_BUILD=${PROJECT_BINARY_DIR};PYTHONDONTWRITEBYTECODE=1;${ARG_ENVIRONMENT}"
          FAIL_REGULAR_EXPRESSION "${merovinska_bad_news}"
          ${ARG_PROPERTIES})
      endforeach()
    endif()
  endforeach()
endfunction()
