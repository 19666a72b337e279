// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <GL/gl.h>
#include <gtest/gtest.h>

#include "tests/support/gl_window.h"

/// A test that draws into one window. All tests of the program share it, because textures and
/// lists live as long as its context. A test begins with identity matrices in the model-view mode
/// and expects that OpenGL has no error at the end.
class GLTest : public testing::Test {
protected:
    GLTest() : window(SharedWindow()) {
        glPushAttrib(GL_ALL_ATTRIB_BITS);
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    }

    void TearDown() override {
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        glPopAttrib();
    }

    static GLint Integer(GLenum parameter) {
        GLint value = 0;
        glGetIntegerv(parameter, &value);
        return value;
    }

    static constexpr int kWide = 320;
    static constexpr int kHigh = 200;
    GLWindowForTests& window;

private:
    static GLWindowForTests& SharedWindow() {
        static GLWindowForTests& shared = *new GLWindowForTests(kWide, kHigh);
        return shared;
    }
};
