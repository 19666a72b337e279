// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Compares a whole frame of the game with a frame of its texts alone. Needs a display. Run it in
// the folder data.

#include <GL/gl.h>
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "bench/runninggame.h"
#include "glwidget/drawing.h"
#include "glwidget/glwidget.h"
#include "tests/support/widget_places.h"

namespace {

/// Made once, with the texts of the screen.
class GameWithTexts {
public:
    static GameWithTexts& Get() {
        static GameWithTexts& game = *new GameWithTexts;
        return game;
    }

    /// A frame's update as the kernel sends it: keys, a mouse that moved, the time.
    void UpdateFrame() {
        x = (x + 7) % 800;
        y = (y + 5) % 600;
        game.SendKeys();
        game.SendMouse(x, y);
        game.SendUpdate(RunningGame::kFrameMs);
    }

    void Render() { game.Render(); }

    /// The texts that are on the screen, at their places, by display lists and nothing else.
    void RenderTexts() {
        glMatrixMode(GL_PROJECTION);
        glPushMatrix();
        glLoadIdentity();
        glOrtho(0.0, 800.0, 0.0, 600.0, -1.0, 1.0);
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glPushAttrib(GL_ENABLE_BIT);
        glEnable(GL_TEXTURE_2D);
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        for (const Text& text : texts) {
            const MatrixScope matrix;
            Translate(text.x, text.y);
            GLWidget::font.SetSize(text.sizeX, text.sizeY);
            GLWidget::font.Print("%s", text.text.c_str());
        }
        glPopAttrib();
        glMatrixMode(GL_PROJECTION);
        glPopMatrix();
        glMatrixMode(GL_MODELVIEW);
    }

private:
    struct Text {
        std::string text;
        float x, y;          ///< pixels from the lower left
        float sizeX, sizeY;  ///< pixels
    };

    GameWithTexts() { FindTexts(); }

    void FindTexts() {
        const Vector& fontSize = GLWidget::themes.find("default")->second->fontSize;
        const float pixelsPerUnit = 600.0f / (2.0f * GLWidget::guiScale);
        for (const auto& [tag, place] : ReachableWidgets())
            texts.push_back({GLWidget::GetByTag(tag)->GetText(), static_cast<float>(place.left),
                             static_cast<float>(600 - place.top), fontSize.x * pixelsPerUnit,
                             fontSize.y * pixelsPerUnit});
    }

    RunningGame game;
    int x = 0;
    int y = 0;
    std::vector<Text> texts;
};

// The driver works in its own threads: so this measures real time, and the processor time of all
// threads.

void BM_WholeFrame(benchmark::State& state) {
    GameWithTexts& game = GameWithTexts::Get();
    for (auto _ : state) {
        game.UpdateFrame();
        game.Render();
        glFinish();
    }
}
BENCHMARK(BM_WholeFrame)->UseRealTime()->MeasureProcessCPUTime()->Unit(benchmark::kMicrosecond);

void BM_TextsAlone(benchmark::State& state) {
    GameWithTexts& game = GameWithTexts::Get();
    for (auto _ : state) {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        game.RenderTexts();
        glFinish();
    }
}
BENCHMARK(BM_TextsAlone)->UseRealTime()->MeasureProcessCPUTime()->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
