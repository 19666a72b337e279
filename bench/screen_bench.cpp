// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Compares frames of the game with frames of a program that shows the same screen with Dear ImGui.
// Both draw in one window with OpenGL 1, and each frame is presented. The argument is the tab that
// is open: 0 the newspaper, 3 the charts. Most of the pixels are pictures, so there are three
// frames with Dear ImGui: with the game's pictures, with areas of one colour in their place, and
// bare, without them. Needs a display. Run it in the folder data.

#include <GL/gl.h>
#include <SDL.h>
#include <benchmark/benchmark.h>

#include <array>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "app/tags.h"
#include "bench/imguiscreen.h"
#include "bench/runninggame.h"
#include "country/population.h"
#include "country/rates.h"
#include "glwidget/button.h"
#include "glwidget/glwidget.h"
#include "glwidget/tabwindow.h"
#include "tools/guiview/scene.h"

namespace {

constexpr const char* kFontFile = "font.ttf";
// With these the country prospers during its first year.
constexpr std::array<float, kProfessions.size()> kShares{0.3f, 0.55f, 0.0f, 0.0f, 0.1f};
constexpr float kJustice = 0.56f;
constexpr int kWeeks = 40;               // that the charts show
constexpr std::uint32_t kTickMs = 1001;  // the shortest frame in which the clock ticks
constexpr std::uint32_t kFadeMs = 1000;  // after which nothing is highlighted

/// The game in the middle of a reign.
class Reign {
public:
    static Reign& Get() {
        static Reign& reign = *new Reign;
        return reign;
    }

    /// Opens a tab, and waits until nothing fades any more.
    void Open(int tab) {
        const guiview::Declarations none;
        const guiview::Scene scene(none);
        auto& window = dynamic_cast<TabWindow&>(*GLWidget::GetByTag("tables"));
        const Button* const button =
            window.GetTabs().at(static_cast<std::size_t>(tab)).button.get();
        for (const guiview::Node* node : scene.Nodes()) {
            if (node->widget == button)
                Click(node->box);
        }
        GLWidget::UpdateWidgets(kFadeMs);
        GLWidget::UpdateWidgets(kFadeMs);
        game.SendUpdate(0);
    }

    /// The same screen in Dear ImGui. Call it after Open.
    ImGuiScreen& InImGui(int tab, ImGuiScreen::Pictures pictures) {
        std::unique_ptr<ImGuiScreen>& screen = screens[{tab, pictures}];
        if (!screen)
            screen = std::make_unique<ImGuiScreen>(kFontFile, pictures);
        return *screen;
    }

    /// What the kernel sends in a frame in which the mouse stands still.
    void Update(std::uint32_t milliseconds) {
        game.SendKeys();
        game.SendUpdate(milliseconds);
    }

    void Render() { game.Render(); }

private:
    Reign() {
        Country& country = game.GetWorld().player;
        country.SetMessageStream(nullptr);
        for (const Profession profession : kProfessions) {
            const float share = kShares[static_cast<std::size_t>(profession)];
            GLWidget::GetByTag(tag::Of(profession).slider)->SetLevel(share);
            country.SetShare(profession, share);
        }
        GLWidget::GetByTag(tag::kJustice)->SetLevel(kJustice);
        game.SendUpdate(0);
        for (int week = 0; week < kWeeks; ++week)
            game.GetWorld().Advance(kSecondsPerWeek);
        game.SendUpdate(0);
    }

    void Click(const guiview::Box& box) {
        const float pixelsPerUnit = 300.0f / GLWidget::guiScale;
        const float x = (box.left + box.right) / 2.0f + GLWidget::HalfWidth();
        const float y = GLWidget::guiScale - (box.bottom + box.top) / 2.0f;
        GLWidget::MouseMoveWidgets(Vector(x * pixelsPerUnit, y * pixelsPerUnit));
        GLWidget::MouseClickWidgets(true, false, false);
        GLWidget::MouseClickWidgets(false, false, false);
        game.SendMouse(0, 0);
    }

    RunningGame game;
    std::map<std::pair<int, ImGuiScreen::Pictures>, std::unique_ptr<ImGuiScreen>> screens;
};

int TabOf(const benchmark::State& state) {
    return static_cast<int>(state.range(0));
}

/// Nothing changes: the mouse stands still, and the clock is between two ticks.
void BM_GameAtRest(benchmark::State& state) {
    Reign& reign = Reign::Get();
    reign.Open(TabOf(state));
    for (auto _ : state) {
        reign.Update(0);
        reign.Render();
        SDL_GL_SwapBuffers();
    }
}

/// The clock ticks in each frame: the date and what depends on it change.
void BM_GameChanging(benchmark::State& state) {
    Reign& reign = Reign::Get();
    reign.Open(TabOf(state));
    for (auto _ : state) {
        reign.Update(kTickMs);
        reign.Render();
        SDL_GL_SwapBuffers();
    }
}

/// Nothing changes, but every widget is drawn.
void BM_GameDrawnWhole(benchmark::State& state) {
    Reign& reign = Reign::Get();
    reign.Open(TabOf(state));
    for (auto _ : state) {
        reign.Update(0);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        GLWidget::RenderWidgets();
        SDL_GL_SwapBuffers();
    }
}

void MeasureImGui(benchmark::State& state, ImGuiScreen::Pictures pictures, bool changing) {
    Reign& reign = Reign::Get();
    reign.Open(TabOf(state));
    ImGuiScreen& screen = reign.InImGui(TabOf(state), pictures);
    for (auto _ : state) {
        if (changing)
            reign.Update(kTickMs);
        screen.Render();
        SDL_GL_SwapBuffers();
    }
}

void BM_ImGuiAtRest(benchmark::State& state, ImGuiScreen::Pictures pictures) {
    MeasureImGui(state, pictures, false);
}

/// The game writes its labels, from which Dear ImGui takes the texts.
void BM_ImGuiChanging(benchmark::State& state, ImGuiScreen::Pictures pictures) {
    MeasureImGui(state, pictures, true);
}

/// What clearing and presenting costs. All of the others do it, too.
void BM_EmptyFrame(benchmark::State& state) {
    Reign::Get();
    for (auto _ : state) {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        SDL_GL_SwapBuffers();
    }
}

// The driver works in its own threads: so this measures real time, and the processor time of all
// threads.
void Arrange(benchmark::internal::Benchmark* measured) {
    measured->UseRealTime()->MeasureProcessCPUTime()->Unit(benchmark::kMicrosecond);
}

void ArrangeTabs(benchmark::internal::Benchmark* measured) {
    measured->ArgName("tab")->Arg(0)->Arg(3)->Apply(Arrange);
}

BENCHMARK(BM_EmptyFrame)->Apply(Arrange);
BENCHMARK(BM_GameAtRest)->Apply(ArrangeTabs);
BENCHMARK(BM_GameDrawnWhole)->Apply(ArrangeTabs);
BENCHMARK(BM_GameChanging)->Apply(ArrangeTabs);
using enum ImGuiScreen::Pictures;
BENCHMARK_CAPTURE(BM_ImGuiAtRest, pictures, Draw)->Apply(ArrangeTabs);
BENCHMARK_CAPTURE(BM_ImGuiAtRest, areas, Areas)->Apply(ArrangeTabs);
BENCHMARK_CAPTURE(BM_ImGuiAtRest, bare, LeaveOut)->Apply(ArrangeTabs);
BENCHMARK_CAPTURE(BM_ImGuiChanging, pictures, Draw)->Apply(ArrangeTabs);
BENCHMARK_CAPTURE(BM_ImGuiChanging, areas, Areas)->Apply(ArrangeTabs);
BENCHMARK_CAPTURE(BM_ImGuiChanging, bare, LeaveOut)->Apply(ArrangeTabs);

}  // namespace

BENCHMARK_MAIN();
