// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Compares frames of text drawn by Print with the same text drawn by display lists alone, and
// times the loading of the font and the measuring of text. Processor time includes the threads of
// the driver. Needs a display. Run it in the folder data.

#include <GL/gl.h>
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>

#include "quarn2/font.h"
#include "quarn2/trace.h"
#include "tests/support/gl_window.h"

namespace {

constexpr int kLabels = 36;  // about as many texts as the screen of the game has
constexpr char kText[] = "Population: 100000 Funds: 4500";
constexpr float kSize = 0.05f;

FontRender& Font() {
    static FontRender& font = *[] {
        static GLWindowForTests window;
        glMatrixMode(GL_PROJECTION);
        glOrtho(-1.73, 1.73, -1.3, 1.3, -1, 1);
        glMatrixMode(GL_MODELVIEW);
        auto* const loaded = new FontRender;
        if (!loaded->Init("font.ttf"))
            std::abort();
        loaded->SetSize(kSize, kSize);
        trace::Start();
        return loaded;
    }();
    return font;
}

/// Calls `draw` where each label begins, and waits for the picture.
template <typename Draw>
void DrawFrame(Draw draw) {
    glClear(GL_COLOR_BUFFER_BIT);
    for (int label = 0; label < kLabels; ++label) {
        const int column = label % 2;
        const int row = label / 2;
        glPushMatrix();
        glTranslatef(-1.7f + static_cast<float>(column) * 1.6f,
                     1.2f - static_cast<float>(row) * 0.13f, 0.0f);
        draw();
        glPopMatrix();
    }
    glFinish();
}

void PrintedFrame(benchmark::State& state) {
    FontRender& font = Font();
    for ([[maybe_unused]] auto _ : state)
        DrawFrame([&] { font.Print("%s", kText); });
}
BENCHMARK(PrintedFrame)->Name("frame of 36 texts by Print")->MeasureProcessCPUTime();

void ListedFrame(benchmark::State& state) {
    Font().Print("%s", "");  // sets the list base
    for ([[maybe_unused]] auto _ : state) {
        glEnable(GL_TEXTURE_2D);
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        DrawFrame([] {
            glScalef(kSize, kSize, 0.0f);
            glCallLists(static_cast<GLsizei>(std::strlen(kText)), GL_UNSIGNED_BYTE, kText);
        });
    }
}
BENCHMARK(ListedFrame)->Name("frame of 36 texts by display lists alone")->MeasureProcessCPUTime();

void Measure(benchmark::State& state) {
    FontRender& font = Font();
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(font.Length("%s", kText));
}
BENCHMARK(Measure)->Name("Length of 30 characters");

void LoadFont(benchmark::State& state) {
    Font();
    for ([[maybe_unused]] auto _ : state) {
        FontRender font;
        if (!font.Init("font.ttf"))
            std::abort();
    }
}
BENCHMARK(LoadFont)->Name("loading the font")->Iterations(20);

}  // namespace

BENCHMARK_MAIN();
