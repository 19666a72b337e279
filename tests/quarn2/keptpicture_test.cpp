// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/keptpicture.h"

#include <GL/gl.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/gl_fixture.h"

namespace {

int texturesMade = 0;
bool texturesFail = false;

}  // namespace

// The linker's --wrap sends the calls of glTexImage2D here.
extern "C" {
void RealTexImage(GLenum target, GLint level, GLint format, GLsizei width, GLsizei height,
                  GLint border, GLenum given, GLenum type,
                  const void* pixels) asm("__real_glTexImage2D");
void WrappedTexImage(GLenum target, GLint level, GLint format, GLsizei width, GLsizei height,
                     GLint border, GLenum given, GLenum type,
                     const void* pixels) asm("__wrap_glTexImage2D");
void WrappedTexImage(GLenum target, GLint level, GLint format, GLsizei width, GLsizei height,
                     GLint border, GLenum given, GLenum type, const void* pixels) {
    ++texturesMade;
    RealTexImage(target, level, format, texturesFail ? -1 : width, height, border, given, type,
                 pixels);
}
}

namespace {

using Pixels = std::vector<std::uint8_t>;

class KeptPictureTest : public GLTest {
protected:
    KeptPictureTest() { glViewport(0, 0, kWide, kHigh); }

    static void Clear(float brightness) {
        glClearColor(brightness, brightness, brightness, 0.0f);
        glClear(GL_COLOR_BUFFER_BIT);
    }

    /// Draws a point of a random colour into every pixel of the window.
    void DrawNoise(unsigned seed) {
        std::srand(seed);
        glMatrixMode(GL_PROJECTION);
        glPushMatrix();
        glOrtho(0, kWide, 0, kHigh, -1, 1);
        glBegin(GL_POINTS);
        for (int y = 0; y < kHigh; ++y) {
            for (int x = 0; x < kWide; ++x) {
                glColor3ub(Byte(), Byte(), Byte());
                glVertex2f(static_cast<float>(x) + 0.5f, static_cast<float>(y) + 0.5f);
            }
        }
        glEnd();
        glPopMatrix();
        glMatrixMode(GL_MODELVIEW);
    }

    static GLubyte Byte() { return static_cast<GLubyte>(std::rand()); }

    KeptPicture picture;
};

TEST_F(KeptPictureTest, PictureIsDrawnAgainPixelForPixel) {
    for (const unsigned seed : {1U, 2U, 3U}) {
        DrawNoise(seed);
        const Pixels drawn = window.Pixels();
        ASSERT_TRUE(picture.Keep());
        EXPECT_EQ(window.Pixels(), drawn);
        Clear(0.5f);
        ASSERT_NE(window.Pixels(), drawn);
        ASSERT_TRUE(picture.Draw());
        EXPECT_EQ(window.Pixels(), drawn);
    }
}

TEST_F(KeptPictureTest, PictureIsDrawnAsOftenAsWanted) {
    DrawNoise(1);
    const Pixels drawn = window.Pixels();
    ASSERT_TRUE(picture.Keep());
    for (int time = 0; time < 5; ++time) {
        Clear(0.1f * static_cast<float>(time));
        ASSERT_TRUE(picture.Draw());
        EXPECT_EQ(window.Pixels(), drawn);
    }
}

TEST_F(KeptPictureTest, PictureIsThatOfTheMomentWhenItWasKept) {
    DrawNoise(1);
    const Pixels drawn = window.Pixels();
    ASSERT_TRUE(picture.Keep());
    DrawNoise(2);
    ASSERT_TRUE(picture.Draw());
    EXPECT_EQ(window.Pixels(), drawn);
}

TEST_F(KeptPictureTest, WithoutAPictureNothingIsDrawn) {
    DrawNoise(1);
    const Pixels drawn = window.Pixels();
    EXPECT_FALSE(picture.Draw());
    EXPECT_EQ(window.Pixels(), drawn);
}

TEST_F(KeptPictureTest, OnlyTheViewportIsKeptAndDrawn) {
    DrawNoise(1);
    const Pixels noise = window.Pixels();
    glViewport(40, 30, 101, 67);
    ASSERT_TRUE(picture.Keep());
    Clear(1.0f);
    ASSERT_TRUE(picture.Draw());
    const Pixels drawn = window.Pixels();
    for (int y = 0; y < kHigh; ++y) {
        for (int x = 0; x < kWide; ++x) {
            const bool inside = x >= 40 && x < 141 && y >= 30 && y < 97;
            const auto red = static_cast<std::size_t>(4 * (y * kWide + x));
            ASSERT_EQ(drawn[red], inside ? noise[red] : 255) << x << ", " << y;
        }
    }
}

TEST_F(KeptPictureTest, PictureOfAnotherViewportIsNotDrawn) {
    DrawNoise(1);
    ASSERT_TRUE(picture.Keep());
    for (const std::array<int, 4>& other :
         {std::array{1, 0, kWide, kHigh}, std::array{0, 1, kWide, kHigh},
          std::array{0, 0, kWide - 1, kHigh}, std::array{0, 0, kWide, kHigh - 1}}) {
        glViewport(other[0], other[1], other[2], other[3]);
        Clear(0.5f);
        const Pixels before = window.Pixels();
        EXPECT_FALSE(picture.Draw());
        EXPECT_EQ(window.Pixels(), before);
    }
}

TEST_F(KeptPictureTest, LargerViewportIsKeptAfterASmallerOne) {
    glViewport(0, 0, 16, 16);
    DrawNoise(1);
    ASSERT_TRUE(picture.Keep());
    glViewport(0, 0, kWide, kHigh);
    DrawNoise(2);
    const Pixels drawn = window.Pixels();
    ASSERT_TRUE(picture.Keep());
    Clear(0.5f);
    ASSERT_TRUE(picture.Draw());
    EXPECT_EQ(window.Pixels(), drawn);
}

TEST_F(KeptPictureTest, EmptyViewportIsNotKept) {
    DrawNoise(1);
    ASSERT_TRUE(picture.Keep());
    glViewport(0, 0, 0, 0);
    EXPECT_FALSE(picture.Keep());
    EXPECT_FALSE(picture.Draw());
    glViewport(0, 0, kWide, kHigh);
    EXPECT_FALSE(picture.Draw());
}

TEST_F(KeptPictureTest, NothingIsKeptWhereNoTextureCanBeMade) {
    DrawNoise(1);
    const Pixels drawn = window.Pixels();
    texturesFail = true;
    EXPECT_FALSE(picture.Keep());
    texturesFail = false;
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_INVALID_VALUE));
    EXPECT_FALSE(picture.Draw());
    EXPECT_EQ(window.Pixels(), drawn);
    const int tried = texturesMade;
    EXPECT_FALSE(picture.Keep()) << "it is not tried again";
    EXPECT_EQ(texturesMade, tried);
}

struct Effect {
    std::string name;
    std::function<void()> set;
};

std::vector<Effect> Effects() {
    std::vector<Effect> effects;
    const auto add = [&](const char* name, const std::function<void()>& set) {
        effects.push_back({name, set});
    };
    add("alpha test", [] {
        glEnable(GL_ALPHA_TEST);
        glAlphaFunc(GL_NEVER, 0.0f);
    });
    add("blending", [] {
        glEnable(GL_BLEND);
        glBlendFunc(GL_ONE, GL_ONE);
    });
    add("depth test", [] {
        glEnable(GL_DEPTH_TEST);
        glDepthFunc(GL_NEVER);
    });
    add("stencil test", [] {
        glEnable(GL_STENCIL_TEST);
        glStencilFunc(GL_NEVER, 0, 0);
    });
    add("scissors", [] {
        glEnable(GL_SCISSOR_TEST);
        glScissor(0, 0, 5, 5);
    });
    add("logic operation", [] {
        glEnable(GL_COLOR_LOGIC_OP);
        glLogicOp(GL_INVERT);
    });
    add("culling", [] {
        glEnable(GL_CULL_FACE);
        glCullFace(GL_FRONT_AND_BACK);
    });
    add("fog", [] {
        glEnable(GL_FOG);
        glFogf(GL_FOG_DENSITY, 100.0f);
    });
    add("lighting", [] { glEnable(GL_LIGHTING); });
    add("colour mask", [] { glColorMask(GL_TRUE, GL_FALSE, GL_FALSE, GL_FALSE); });
    add("lines", [] { glPolygonMode(GL_FRONT_AND_BACK, GL_LINE); });
    add("stipple", [] {
        constexpr GLubyte kNothing[128] = {};
        glEnable(GL_POLYGON_STIPPLE);
        glPolygonStipple(kNothing);
    });
    add("texture environment", [] { glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE); });
    add("texture coordinates", [] {
        glEnable(GL_TEXTURE_GEN_S);
        glEnable(GL_TEXTURE_GEN_T);
    });
    add("no texturing", [] { glDisable(GL_TEXTURE_2D); });
    add("colour", [] { glColor4f(0.2f, 0.4f, 0.6f, 0.5f); });
    for (const GLenum matrix : {GLenum{GL_PROJECTION}, GLenum{GL_MODELVIEW}, GLenum{GL_TEXTURE}}) {
        add("matrix", [matrix] {
            glMatrixMode(matrix);
            glTranslatef(0.3f, 0.2f, 0.0f);
            glScalef(2.0f, 0.5f, 1.0f);
        });
    }
    for (GLenum plane = GL_CLIP_PLANE0; plane <= GL_CLIP_PLANE5; ++plane) {
        add("clip plane", [plane] {
            constexpr GLdouble kNothing[4] = {0.0, 0.0, 0.0, -1.0};
            glClipPlane(plane, kNothing);
            glEnable(plane);
        });
    }
    return effects;
}

TEST_F(KeptPictureTest, NoEffectChangesWhatIsDrawn) {
    DrawNoise(1);
    const Pixels drawn = window.Pixels();
    ASSERT_TRUE(picture.Keep());
    for (const Effect& effect : Effects()) {
        Clear(0.5f);
        glPushAttrib(GL_ALL_ATTRIB_BITS);
        effect.set();
        ASSERT_TRUE(picture.Draw());
        glPopAttrib();
        EXPECT_EQ(window.Pixels(), drawn) << effect.name;
        for (const GLenum matrix :
             {GLenum{GL_PROJECTION}, GLenum{GL_TEXTURE}, GLenum{GL_MODELVIEW}}) {
            glMatrixMode(matrix);
            glLoadIdentity();
        }
        glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    }
}

constexpr GLenum kValues[] = {GL_MODELVIEW_MATRIX,
                              GL_PROJECTION_MATRIX,
                              GL_TEXTURE_MATRIX,
                              GL_CURRENT_COLOR,
                              GL_CURRENT_TEXTURE_COORDS,
                              GL_CURRENT_NORMAL,
                              GL_COLOR_WRITEMASK,
                              GL_POLYGON_MODE,
                              GL_TEXTURE_BINDING_2D,
                              GL_MATRIX_MODE,
                              GL_MODELVIEW_STACK_DEPTH,
                              GL_PROJECTION_STACK_DEPTH,
                              GL_TEXTURE_STACK_DEPTH,
                              GL_ATTRIB_STACK_DEPTH,
                              GL_CLIENT_ATTRIB_STACK_DEPTH,
                              GL_VIEWPORT,
                              GL_COLOR_CLEAR_VALUE,
                              GL_BLEND_SRC,
                              GL_BLEND_DST,
                              GL_LINE_WIDTH,
                              GL_UNPACK_ALIGNMENT};

constexpr GLenum kSwitches[] = {
    GL_ALPHA_TEST,   GL_BLEND,        GL_COLOR_LOGIC_OP, GL_CULL_FACE,      GL_DEPTH_TEST,
    GL_DITHER,       GL_FOG,          GL_LIGHTING,       GL_POLYGON_SMOOTH, GL_POLYGON_STIPPLE,
    GL_SCISSOR_TEST, GL_STENCIL_TEST, GL_TEXTURE_1D,     GL_TEXTURE_2D,     GL_TEXTURE_GEN_S,
    GL_TEXTURE_GEN_T};

/// What glGet and glIsEnabled say.
std::vector<double> State() {
    std::vector<double> state;
    for (const GLenum name : kValues) {
        std::array<double, 16> values{};
        glGetDoublev(name, values.data());
        state.insert(state.end(), values.begin(), values.end());
    }
    for (const GLenum name : kSwitches)
        state.push_back(glIsEnabled(name));
    for (GLenum plane = GL_CLIP_PLANE0; plane <= GL_CLIP_PLANE5; ++plane)
        state.push_back(glIsEnabled(plane));
    GLint environment = 0;
    glGetTexEnviv(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, &environment);
    state.push_back(environment);
    return state;
}

TEST_F(KeptPictureTest, StateAndMatricesAreAfterwardsWhatTheyWere) {
    GLuint other = 0;
    glGenTextures(1, &other);
    glBindTexture(GL_TEXTURE_2D, other);
    DrawNoise(1);
    const auto leavesTheState = [&](const std::string& name) {
        const std::vector<double> before = State();
        ASSERT_TRUE(picture.Keep());
        EXPECT_EQ(State(), before) << "Keep, " << name;
        ASSERT_TRUE(picture.Draw());
        EXPECT_EQ(State(), before) << "Draw, " << name;
    };
    leavesTheState("a new context's state");
    for (const Effect& effect : Effects()) {
        glPushAttrib(GL_ALL_ATTRIB_BITS);
        effect.set();
        leavesTheState(effect.name);
        glPopAttrib();
    }
    for (const GLenum matrix : {GLenum{GL_PROJECTION}, GLenum{GL_TEXTURE}, GLenum{GL_MODELVIEW}}) {
        glMatrixMode(matrix);
        glLoadIdentity();
    }
    glDeleteTextures(1, &other);
}

TEST_F(KeptPictureTest, TextureIsMadeOnce) {
    DrawNoise(1);
    ASSERT_TRUE(picture.Keep());
    const int made = texturesMade;
    ASSERT_TRUE(picture.Keep());
    ASSERT_TRUE(picture.Draw());
    EXPECT_EQ(texturesMade, made);
}

}  // namespace
