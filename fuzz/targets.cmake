# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

# merovinska_add_fuzz_target(EXECUTABLE TARGET): adds the function of a fuzz target to an
# executable, in which the fuzzer or a test calls it.
set(MEROVINSKA_FUZZ_TARGETS
  inflate decode_png decode_tga date_text name_pattern layout theme configuration)

function(merovinska_add_fuzz_target executable target)
  target_sources(${executable} PRIVATE
    ${PROJECT_SOURCE_DIR}/fuzz/${target}.cpp ${PROJECT_SOURCE_DIR}/fuzz/target.cpp)
  target_link_libraries(${executable} PRIVATE merovinska_options)
  if(target STREQUAL "inflate")
    target_link_libraries(${executable} PRIVATE quarn2_image test_deflate_streams)
  elseif(target MATCHES "decode_")
    target_link_libraries(${executable} PRIVATE quarn2_image)
  elseif(target MATCHES "date_text|name_pattern")
    target_link_libraries(${executable} PRIVATE country)
  else()
    target_sources(${executable} PRIVATE ${PROJECT_SOURCE_DIR}/fuzz/assertions.cpp)
    target_link_libraries(${executable} PRIVATE glwidget)
    target_link_options(${executable} PRIVATE -Wl,--wrap=_Z12AssertFailedPKciS0_)
  endif()
endfunction()
