// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/toolkit.h"

#include <GL/gl.h>

#include "quarn2/texture.h"
#include "quarn2/trace.h"

namespace {

constexpr std::int32_t kWidthWithoutWindow = 800;
constexpr std::int32_t kHeightWithoutWindow = 600;

}  // namespace

Toolkit& Toolkit::Get() {
    static Toolkit& toolkit = *new Toolkit;
    return toolkit;
}

void Toolkit::Reset() {
    Assert("glwidget/toolkit", __LINE__, "dispatches == 0", dispatches == 0);
    tags.clear();
    widgets.clear();
    parts.deleteWidgets();
    const Parts kept = parts;
    *this = Toolkit();
    parts = kept;
}

void Toolkit::ResetWithoutWindow() {
    Reset();
    readViewport = ReadViewportWithoutWindow;
    loadFont = LoadFontToMeasure;
    loadImage = LeaveImageOut;
    readViewport(viewport);
}

void Toolkit::ReadViewportOfOpenGL(std::int32_t (&viewport)[4]) {
    static_assert(sizeof(GLint) == sizeof(std::int32_t));
    glGetIntegerv(GL_VIEWPORT, viewport);
}

void Toolkit::ReadViewportWithoutWindow(std::int32_t (&viewport)[4]) {
    viewport[0] = 0;
    viewport[1] = 0;
    viewport[2] = kWidthWithoutWindow;
    viewport[3] = kHeightWithoutWindow;
}

bool Toolkit::LoadFontToDraw(FontRender& font, const std::string& path) {
    return font.Init(path);
}

bool Toolkit::LoadFontToMeasure(FontRender& font, const std::string& path) {
    return font.Measure(path);
}

bool Toolkit::LoadImageToDraw(Texture& image, const std::string& file) {
    return image.Load(TextureDetails(file, 0));
}

bool Toolkit::LeaveImageOut(Texture&, const std::string&) {
    return true;
}
