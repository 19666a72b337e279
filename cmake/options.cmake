# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

# The options of all targets. Headers of libraries cause no warnings, because their imported targets
# declare them as system headers.
add_library(merovinska_options INTERFACE)
target_include_directories(merovinska_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(merovinska_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Woverloaded-virtual -Wnon-virtual-dtor -Wsuggest-override -Werror
  # The toolkit turns the texts that it prints into format strings. Only clang warns by default if a
  # format string is not a literal.
  $<$<CXX_COMPILER_ID:Clang>:-Wno-format-security>
  # By default g++ looks for unused memory, a tenth of its time, before it needs it. In KiB.
  $<$<CXX_COMPILER_ID:GNU>:--param=ggc-min-heapsize=524288>
  # The single-precision numbers of the model must be rounded in the same way on every processor.
  -ffp-contract=off)

if(MEROVINSKA_SANITIZE)
  target_compile_options(merovinska_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer
    # With sanitizers, g++ warns of fields in the standard library's own std::regex.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_link_options(merovinska_options INTERFACE -fsanitize=address,undefined)
  set(program "$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>")
  target_sources(merovinska_options INTERFACE
    $<${program}:${PROJECT_SOURCE_DIR}/tests/support/keep_libraries.cpp>)
endif()
if(MEROVINSKA_COVERAGE)
  target_compile_options(merovinska_options INTERFACE --coverage -fprofile-abs-path)
  target_link_options(merovinska_options INTERFACE --coverage)
endif()
if(MEROVINSKA_HARDEN)
  target_compile_options(merovinska_options INTERFACE
    -fstack-protector-strong -fstack-clash-protection -fcf-protection -fPIE
    -ffile-prefix-map=${PROJECT_BINARY_DIR}=build -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
  target_compile_definitions(merovinska_options INTERFACE _FORTIFY_SOURCE=2 _GLIBCXX_ASSERTIONS)
  target_link_options(merovinska_options INTERFACE
    -pie -Wl,-z,relro -Wl,-z,now -Wl,--as-needed)
endif()
if(MEROVINSKA_FUZZ)
  # The warnings of clang are errors with the preset clang.
  target_compile_options(merovinska_options INTERFACE -Wno-error
    -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined
    -fno-omit-frame-pointer)
  target_link_options(merovinska_options INTERFACE -fsanitize=address,undefined)
endif()

# merovinska_library(NAME FILES...): a static library with the options of all targets.
function(merovinska_library name)
  add_library(${name} STATIC ${ARGN})
  target_link_libraries(${name} PUBLIC merovinska_options)
  merovinska_precompiled_headers(${name})
endfunction()

# merovinska_precompiled_headers(TARGET): in builds for developers, precompiles the headers of the
# standard library, which take half of the time to compile most sources. Then the compiler does not
# notice if a source lacks one of these includes. It does in the other builds: clang, clang-tidy and
# the package.
function(merovinska_precompiled_headers target)
  if(NOT BUILD_TESTING OR NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    return()
  endif()
  if(NOT TARGET standard_headers)
    file(WRITE ${PROJECT_BINARY_DIR}/standard_headers.cpp "")
    add_library(standard_headers OBJECT ${PROJECT_BINARY_DIR}/standard_headers.cpp)
    target_link_libraries(standard_headers PRIVATE merovinska_options)
    target_precompile_headers(standard_headers PRIVATE
      <algorithm> <array> <cmath> <cstdint> <cstdlib> <functional> <iostream> <limits> <map>
      <memory> <span> <sstream> <string> <string_view> <utility> <vector>)
  endif()
  target_precompile_headers(${target} REUSE_FROM standard_headers)
endfunction()
