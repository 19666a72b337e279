// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <GL/gl.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <vector>

#include "glwidget/glwidget.h"

/// Draws every frame a second time, with all widgets, and compares the two pictures byte for byte.
class TwiceDrawn {
public:
    /// Call it after each picture of the game. Ends the process with status 1 if the picture is not
    /// the one that the widgets give.
    void Compare() {
        if (++frames == 1)
            return;  // its background is black, and dark blue in all others
        ReadPixels(shown);
        const bool wasDrawn = probe->renders != 0;
        (wasDrawn ? drawn : kept) += 1;
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        glLoadIdentity();
        GLWidget::RenderWidgets();
        ReadPixels(expected);
        probe->renders = 0;
        for (std::size_t i = 0; i < shown.size(); ++i) {
            if (shown[i] == expected[i])
                continue;
            const std::size_t pixel = i / kChannels;
            std::cerr << "picture " << frames << (wasDrawn ? ", drawn" : ", kept")
                      << ", differs at " << pixel % kWidth << ", " << pixel / kWidth << '\n';
            std::exit(1);
        }
    }

    /// Lets the widgets tell whether they were drawn. Call it when the layout has been read.
    void Join() {
        probe = new Probe;
        GLWidget::widgets.push_back(probe);
    }

    long Kept() const { return kept; }
    long Drawn() const { return drawn; }

private:
    static constexpr std::size_t kWidth = 800;
    static constexpr std::size_t kHeight = 600;
    static constexpr std::size_t kChannels = 4;

    /// Counts how often the widgets are drawn.
    class Probe : public GLWidget {
    public:
        Probe() : GLWidget("__probe", nullptr, Vector(), nullptr) {}
        bool MouseClick(bool, bool, bool) override { return false; }
        void Render() override { ++renders; }
        void AddAppearance(Fingerprint&) override {}  // it cannot be seen
        void SetFocussed(GLWidget*) override {}

        int renders = 0;
    };

    static void ReadPixels(std::vector<std::uint8_t>& pixels) {
        pixels.resize(kWidth * kHeight * kChannels);
        glReadPixels(0, 0, kWidth, kHeight, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    }

    Probe* probe = nullptr;  // the toolkit owns it
    std::vector<std::uint8_t> shown;
    std::vector<std::uint8_t> expected;
    long frames = 0;
    long kept = 0;
    long drawn = 0;
};
