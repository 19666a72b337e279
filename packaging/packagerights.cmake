# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

# CPack runs this file after it has installed the files and before it packs them. It sets the
# permissions of folders that CPack created itself, which depend on the caller's umask.
cmake_policy(SET CMP0009 NEW)  # follow no links
file(GLOB_RECURSE paths LIST_DIRECTORIES true ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*)
foreach(path IN LISTS paths)
  if(IS_DIRECTORY ${path} AND NOT IS_SYMLINK ${path})
    file(CHMOD ${path} DIRECTORY_PERMISSIONS ${CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
  endif()
endforeach()
