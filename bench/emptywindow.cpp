// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// The smallest program with an SDL window and OpenGL: it opens the window and presents empty
// pictures until it is closed. Its start is compared with the start of the game.

#include <GL/gl.h>
#include <SDL.h>

#include <iostream>

int main() {
    if (SDL_Init(SDL_INIT_VIDEO | SDL_INIT_NOPARACHUTE) < 0) {
        std::cerr << SDL_GetError() << '\n';
        return 1;
    }
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    if (SDL_SetVideoMode(800, 600, 24, SDL_OPENGL) == nullptr) {
        std::cerr << SDL_GetError() << '\n';
        return 1;
    }
    SDL_WM_SetCaption("Empty window", nullptr);
    SDL_Event event;
    while (true) {
        while (SDL_PollEvent(&event) == 1)
            if (event.type == SDL_QUIT)
                return 0;
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        SDL_GL_SwapBuffers();
    }
}
