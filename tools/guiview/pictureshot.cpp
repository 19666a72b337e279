// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/pictureshot.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GL/gl.h>
#include <png.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <vector>

#include "glwidget/glwidget.h"
#include "glwidget/toolkit.h"
#include "tools/guiview/gamecheck.h"
#include "tools/guiview/scene.h"

namespace guiview {

namespace {

constexpr int kWidth = 800;
constexpr int kHeight = 600;
constexpr int kMargin = 8;  ///< pixels around a cropped picture
/// Longer than any highlight or flash takes.
constexpr int kSettleMs = 10000;

bool Fail(const std::string& what) {
    std::cerr << "guiview: " << what << '\n';
    return false;
}

/// An OpenGL context without a window and without a display. Mesa draws it in software, so that a
/// picture is the same on every machine.
class OffScreen {
public:
    OffScreen() {
        setenv("LIBGL_ALWAYS_SOFTWARE", "1", 1);
        display =
            eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
        constexpr EGLint kWanted[] = {EGL_SURFACE_TYPE,
                                      EGL_PBUFFER_BIT,
                                      EGL_RENDERABLE_TYPE,
                                      EGL_OPENGL_BIT,
                                      EGL_BUFFER_SIZE,
                                      24,
                                      EGL_DEPTH_SIZE,
                                      24,
                                      EGL_NONE};
        constexpr EGLint kSize[] = {EGL_WIDTH, kWidth, EGL_HEIGHT, kHeight, EGL_NONE};
        EGLConfig config = nullptr;
        EGLint found = 0;
        if (eglInitialize(display, nullptr, nullptr) == EGL_FALSE
            || eglBindAPI(EGL_OPENGL_API) == EGL_FALSE
            || eglChooseConfig(display, kWanted, &config, 1, &found) == EGL_FALSE || found == 0)
            return;
        const EGLSurface surface = eglCreatePbufferSurface(display, config, kSize);
        const EGLContext context = eglCreateContext(display, config, EGL_NO_CONTEXT, nullptr);
        current = eglMakeCurrent(display, surface, surface, context) == EGL_TRUE;
    }
    ~OffScreen() { eglTerminate(display); }
    OffScreen(const OffScreen&) = delete;
    OffScreen& operator=(const OffScreen&) = delete;

    bool IsCurrent() const { return current; }

private:
    EGLDisplay display = EGL_NO_DISPLAY;
    bool current = false;
};

/// Red, green and blue of every pixel, the bottom row first.
class Pixels {
public:
    Pixels() : bytes(static_cast<std::size_t>(kWidth) * kHeight * kChannels) {
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glReadPixels(0, 0, kWidth, kHeight, GL_RGB, GL_UNSIGNED_BYTE, bytes.data());
    }

    const std::uint8_t* At(int x, int y) const {
        return &bytes[(static_cast<std::size_t>(y) * kWidth + static_cast<std::size_t>(x))
                      * kChannels];
    }

    struct Area {
        int left = kWidth;
        int bottom = kHeight;
        int right = 0;
        int top = 0;
    };

    static Area Whole() { return {0, 0, kWidth, kHeight}; }

    /// The part whose colour differs from that of the lower left corner, with a margin.
    Area Used() const {
        Area used;
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                if (std::equal(At(x, y), At(x, y) + kChannels, At(0, 0)))
                    continue;
                used.left = std::min(used.left, x - kMargin);
                used.bottom = std::min(used.bottom, y - kMargin);
                used.right = std::max(used.right, x + 1 + kMargin);
                used.top = std::max(used.top, y + 1 + kMargin);
            }
        }
        if (used.right == 0)
            return Whole();
        return {std::max(used.left, 0), std::max(used.bottom, 0), std::min(used.right, kWidth),
                std::min(used.top, kHeight)};
    }

    bool Write(const Area& area, const std::string& file) const {
        png_image image{};
        image.version = PNG_IMAGE_VERSION;
        image.width = static_cast<png_uint_32>(area.right - area.left);
        image.height = static_cast<png_uint_32>(area.top - area.bottom);
        image.format = PNG_FORMAT_RGB;
        // A negative stride: the file begins with the top row.
        const png_int_32 stride = -kWidth * kChannels;
        if (png_image_write_to_file(&image, file.c_str(), 0, At(area.left, area.bottom), stride,
                                    nullptr)
            != 0)
            return true;
        return Fail(file + ": cannot be written: " + image.message);
    }

private:
    static constexpr int kChannels = 3;
    std::vector<std::uint8_t> bytes;
};

void Settle() {
    // The first update may go past the end, the second corrects that.
    GLWidget::UpdateWidgets(kSettleMs);
    GLWidget::UpdateWidgets(kSettleMs);
}

/// Moves the mouse over the middle of a widget.
bool Hover(const LayoutSource& layout, const std::string& tag) {
    const Scene scene(layout.Declared());
    const Node* const node = scene.Find(tag);
    if (node == nullptr)
        return Fail("no widget has the tag '" + tag + "'");
    const float x = (node->box.left + node->box.right) / 2.0f;
    const float y = (node->box.bottom + node->box.top) / 2.0f;
    GLWidget::MouseMoveWidgets({(x / GLWidget::HalfWidth() + 1.0f) * kWidth / 2.0f,
                                (1.0f - y / GLWidget::guiScale) * kHeight / 2.0f});
    Settle();
    return true;
}

void Press(bool down) {
    GLWidget::MouseClickWidgets(down, false, false);
    Settle();
}

bool TakePose(const LayoutSource& layout, const Pose& pose) {
    if (pose.longestGameTexts)
        FillGameTexts();
    FillTexts(pose.texts);
    Settle();
    for (const std::string& tag : pose.clicked) {
        if (!Hover(layout, tag))
            return false;
        Press(true);
        Press(false);
    }
    if (!pose.hovered.empty() && !Hover(layout, pose.hovered))
        return false;
    if (pose.pressed.empty())
        return true;
    if (!Hover(layout, pose.pressed))
        return false;
    Press(true);
    return true;
}

}  // namespace

void DrawScreen() {
    glClearColor(0.0f, 0.0f, 0.8f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glLoadIdentity();
    GLWidget::RenderWidgets();
}

bool TakePicture(const LayoutSource& layout, const Pose& pose, bool crop, const std::string& file) {
    const OffScreen screen;
    if (!screen.IsCurrent())
        return Fail("no picture can be drawn: is Mesa's driver for EGL installed?");
    Toolkit::Get().readViewport(GLWidget::viewport);
    {
        const FolderVisit visit(layout.Folder());
        layout.Build();
        if (!TakePose(layout, pose))
            return false;
    }
    DrawScreen();
    const Pixels pixels;
    return pixels.Write(crop ? pixels.Used() : Pixels::Whole(), file);
}

}  // namespace guiview
