// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tests/support/gl_window.h"

#include <GL/gl.h>
#include <SDL.h>

#include <cstdio>
#include <cstdlib>

GLWindowForTests::GLWindowForTests(int pixelsWide, int pixelsHigh)
    : width(pixelsWide), height(pixelsHigh) {
    if (SDL_InitSubSystem(SDL_INIT_VIDEO | SDL_INIT_NOPARACHUTE) < 0) {
        std::fprintf(stderr, "A drawing test needs a display: %s\n", SDL_GetError());
        std::abort();
    }
    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    if (SDL_SetVideoMode(width, height, 24, SDL_OPENGL) == nullptr) {
        std::fprintf(stderr, "A drawing test needs OpenGL: %s\n", SDL_GetError());
        std::abort();
    }
    glViewport(0, 0, width, height);
    glClearColor(0.0f, 0.0f, 0.0f, 0.0f);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

GLWindowForTests::~GLWindowForTests() {
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

std::vector<std::uint8_t> GLWindowForTests::Pixels() const {
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(width)
                                     * static_cast<std::size_t>(height) * 4);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    return pixels;
}

GLWindowForTests::Pixel GLWindowForTests::At(int x, int y) const {
    Pixel pixel{};
    glReadPixels(x, y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, &pixel);
    return pixel;
}
