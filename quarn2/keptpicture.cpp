// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/keptpicture.h"

#include <GL/gl.h>

#include <algorithm>
#include <bit>

#include "quarn2/trace.h"

namespace {

GLint Integer(GLenum name) {
    GLint value = 0;
    glGetIntegerv(name, &value);
    return value;
}

/// Binds a texture while it exists.
class TextureScope {
public:
    explicit TextureScope(std::uint32_t name) : before(Integer(GL_TEXTURE_BINDING_2D)) {
        glBindTexture(GL_TEXTURE_2D, name);
    }
    ~TextureScope() { glBindTexture(GL_TEXTURE_2D, static_cast<GLuint>(before)); }
    TextureScope(const TextureScope&) = delete;
    TextureScope& operator=(const TextureScope&) = delete;

private:
    GLint before;
};

/// While it exists, a texture is drawn as it is, without any other effect on its pixels.
class PlainDrawingScope {
public:
    PlainDrawingScope() {
        glPushAttrib(GL_ENABLE_BIT | GL_CURRENT_BIT | GL_POLYGON_BIT | GL_TRANSFORM_BIT
                     | GL_COLOR_BUFFER_BIT);
        for (const GLenum effect : kEffects)
            glDisable(effect);
        glEnable(GL_TEXTURE_2D);
        glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
        glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
        glGetTexEnviv(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, &environment);
        glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_REPLACE);
        for (const GLenum matrix : kMatrices) {
            glMatrixMode(matrix);
            glPushMatrix();
            glLoadIdentity();
        }
    }
    ~PlainDrawingScope() {
        for (const GLenum matrix : kMatrices) {
            glMatrixMode(matrix);
            glPopMatrix();
        }
        glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, environment);
        glPopAttrib();
    }
    PlainDrawingScope(const PlainDrawingScope&) = delete;
    PlainDrawingScope& operator=(const PlainDrawingScope&) = delete;

private:
    static constexpr GLenum kEffects[] = {
        GL_ALPHA_TEST,   GL_BLEND,        GL_COLOR_LOGIC_OP, GL_CULL_FACE,      GL_DEPTH_TEST,
        GL_DITHER,       GL_FOG,          GL_LIGHTING,       GL_POLYGON_SMOOTH, GL_POLYGON_STIPPLE,
        GL_SCISSOR_TEST, GL_STENCIL_TEST, GL_TEXTURE_1D,     GL_TEXTURE_GEN_S,  GL_TEXTURE_GEN_T,
        GL_CLIP_PLANE0,  GL_CLIP_PLANE1,  GL_CLIP_PLANE2,    GL_CLIP_PLANE3,    GL_CLIP_PLANE4,
        GL_CLIP_PLANE5};
    static constexpr GLenum kMatrices[] = {GL_PROJECTION, GL_MODELVIEW, GL_TEXTURE};
    GLint environment = 0;
};

/// OpenGL 1 has no textures of other sizes.
GLsizei PowerOfTwo(std::int32_t size) {
    return static_cast<GLsizei>(std::bit_ceil(static_cast<std::uint32_t>(size)));
}

/// Whether the bound texture stores each colour of the window exactly.
bool StoresTheWindow(GLsizei width) {
    const auto has = [](GLenum name) {
        GLint value = 0;
        glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, name, &value);
        return value;
    };
    return has(GL_TEXTURE_WIDTH) == width  // 0 if it could not be made
           && has(GL_TEXTURE_RED_SIZE) >= Integer(GL_RED_BITS)
           && has(GL_TEXTURE_GREEN_SIZE) >= Integer(GL_GREEN_BITS)
           && has(GL_TEXTURE_BLUE_SIZE) >= Integer(GL_BLUE_BITS)
           && has(GL_TEXTURE_ALPHA_SIZE) >= Integer(GL_ALPHA_BITS);
}

}  // namespace

KeptPicture::Viewport KeptPicture::CurrentViewport() {
    Viewport viewport{};
    glGetIntegerv(GL_VIEWPORT, viewport.data());
    return viewport;
}

bool KeptPicture::MakeTexture(std::int32_t width, std::int32_t height) {
    textureWidth = PowerOfTwo(width);
    textureHeight = PowerOfTwo(height);
    if (std::max(textureWidth, textureHeight) > Integer(GL_MAX_TEXTURE_SIZE))
        return false;
    if (texture == 0)
        glGenTextures(1, &texture);
    const TextureScope bound(texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexImage2D(GL_TEXTURE_2D, 0, Integer(GL_ALPHA_BITS) > 0 ? GL_RGBA8 : GL_RGB8, textureWidth,
                 textureHeight, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    return StoresTheWindow(textureWidth);
}

bool KeptPicture::Keep() {
    TraceFrame frame("Keep", "KeptPicture");
    const Viewport viewport = CurrentViewport();
    const auto [x, y, width, height] = viewport;
    kept = {};
    if (refused || width <= 0 || height <= 0)
        return false;
    if (width > textureWidth || height > textureHeight) {
        refused = !MakeTexture(width, height);
        if (refused)
            return false;
    }
    const TextureScope bound(texture);
    glCopyTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, x, y, width, height);
    kept = viewport;
    return true;
}

bool KeptPicture::Draw() const {
    TraceFrame frame("Draw", "KeptPicture");
    if (kept[2] == 0 || kept != CurrentViewport())
        return false;
    const PlainDrawingScope plain;
    const TextureScope bound(texture);
    const float right = static_cast<float>(kept[2]) / static_cast<float>(textureWidth);
    const float top = static_cast<float>(kept[3]) / static_cast<float>(textureHeight);
    glBegin(GL_QUADS);
    glTexCoord2f(0.0f, 0.0f);
    glVertex2f(-1.0f, -1.0f);
    glTexCoord2f(right, 0.0f);
    glVertex2f(1.0f, -1.0f);
    glTexCoord2f(right, top);
    glVertex2f(1.0f, 1.0f);
    glTexCoord2f(0.0f, top);
    glVertex2f(-1.0f, 1.0f);
    glEnd();
    return true;
}
