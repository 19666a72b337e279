// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// A frame of the game without its OpenGL calls: gives the mouse and the keys to the widgets, reads
// the controls and writes every label. The layout is that of the game, read in an empty folder, so
// that no picture and no font is loaded.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>

#include "app/app.h"
#include "country/rates.h"
#include "glwidget/glwidget.h"
#include "quarn2/trace.h"
#include "tests/support/font_access.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr std::uint32_t kFrameMs = 16;

App& Game() {
    static Pointer<App> app;
    if (!app) {
        trace::Start();
        const WorkingFolder folder;
        Toolkit::Get().readViewport = Toolkit::ReadViewportWithoutWindow;
        FontAccess::SetAdvances(GLWidget::font, 0.6f);
        const std::ostringstream quiet;
        std::streambuf* const errors = std::cerr.rdbuf(quiet.rdbuf());
        GLWidget::StartGUI(LAYOUT_FILE);
        std::cerr.rdbuf(errors);
        std::srand(1358);
        app = new App;
        app->CreateWorld();
        app->GetWorld()->player.SetMessageStream(nullptr);
    }
    return *static_cast<App*>(app);
}

void MovePointer(int step) {
    GLWidget::MouseMoveWidgets(
        Vector(static_cast<float>(step % 800), static_cast<float>(step % 600)));
    GLWidget::MouseClickWidgets(false, false, false);
}

/// The most frequent frame: the mouse moves, nothing in the country changes.
void BM_FrameWithoutATick(benchmark::State& state) {
    App& app = Game();
    const KeyFlags keys{};
    int step = 0;
    for (auto _ : state) {
        MovePointer(++step);
        GLWidget::TextKeyPressWidgets(keys);
        app.Update(0);
    }
}
BENCHMARK(BM_FrameWithoutATick)->Unit(benchmark::kMicrosecond);

/// Sixty frames a second, one of which advances the country and changes its labels.
void BM_FrameOfTheRunningClock(benchmark::State& state) {
    App& app = Game();
    const KeyFlags keys{};
    int step = 0;
    for (auto _ : state) {
        MovePointer(++step);
        GLWidget::TextKeyPressWidgets(keys);
        app.Update(kFrameMs);
    }
}
BENCHMARK(BM_FrameOfTheRunningClock)->Unit(benchmark::kMicrosecond);

/// Whether anything has changed that can be seen.
void BM_Appearance(benchmark::State& state) {
    App& app = Game();
    MovePointer(1);
    app.Update(0);
    for (auto _ : state)
        benchmark::DoNotOptimize(GLWidget::Appearance());
}
BENCHMARK(BM_Appearance)->Unit(benchmark::kMicrosecond);

/// A press of the week button: 604800 one-second steps of the date, a tick, an edition.
void BM_Week(benchmark::State& state) {
    World& world = *Game().GetWorld();
    for (auto _ : state)
        world.Advance(kSecondsPerWeek);
}
BENCHMARK(BM_Week)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
