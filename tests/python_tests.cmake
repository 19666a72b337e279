# merovinska_python_tests(FILE [PROPERTIES ...]): one CTest entry per test of a Python file, which
# finds the build in the environment. Debian's interpreter is named in full: it has Debian's
# modules, whatever other one stands first on the search path.
function(merovinska_python_tests file)
  cmake_parse_arguments(ARG "" "" "PROPERTIES" ${ARGN})
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
  file(STRINGS ${file} lines REGEX "^(class [A-Za-z]+\\(|    def test_)")
  cmake_path(GET file STEM module)
  foreach(line IN LISTS lines)
    if(line MATCHES "^class ([A-Za-z]+)")
      set(class ${CMAKE_MATCH_1})
    elseif(line MATCHES "def test_([A-Za-z0-9_]+)")
      set(name ${class}.${CMAKE_MATCH_1})
      add_test(NAME ${name}
        COMMAND /usr/bin/python3 -m unittest ${module}.${class}.test_${CMAKE_MATCH_1}
        WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR})
      set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "MEROVINSKA_BUILD=${PROJECT_BINARY_DIR};PYTHONDONTWRITEBYTECODE=1"
        ${ARG_PROPERTIES})
    endif()
  endforeach()
endfunction()
