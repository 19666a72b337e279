# SPDX-FileCopyrightText: 2026 The Merovinska founders
# SPDX-License-Identifier: MIT

set(SDL_BUILDING_LIBRARY TRUE)  # the programs have a main() of their own and need no SDLmain
find_package(SDL 1.2 REQUIRED)
set(OpenGL_GL_PREFERENCE GLVND)
find_package(OpenGL REQUIRED)
find_package(GLEW REQUIRED)
find_package(Freetype REQUIRED)
find_package(ZLIB REQUIRED)
