# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

# CPack reads this file. All files in the package get the time of the last commit, so that every
# build of a commit makes the same package. A tree without a git repository takes the time of the
# newest entry of the changelog.
if("$ENV{SOURCE_DATE_EPOCH}" STREQUAL "")
  execute_process(
    COMMAND git -c safe.directory=* -C ${CPACK_MEROVINSKA_SOURCE} log -1 --format=%ct
    OUTPUT_VARIABLE seconds OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  if(NOT seconds MATCHES "^[0-9]+$")
    execute_process(
      COMMAND dpkg-parsechangelog -S Timestamp -l ${CPACK_MEROVINSKA_SOURCE}/packaging/changelog
      OUTPUT_VARIABLE seconds OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  endif()
  set(ENV{SOURCE_DATE_EPOCH} ${seconds})
endif()
