// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "app/app.h"

#include <GL/gl.h>

#include <cmath>
#include <cstdlib>
#include <ctime>

#include "app/controls.h"
#include "app/tags.h"
#include "country/rates.h"
#include "country/start.h"
#include "glwidget/glwidget.h"
#include "quarn2/glrender.h"
#include "quarn2/kernel.h"
#include "quarn2/sdlinput.h"
#include "quarn2/trace.h"

namespace {

constexpr const char* kLayoutFile = "my.gui.debug";
constexpr std::size_t kEscape = 27;

constexpr std::uint32_t kChannels = 0x17e;  // 1 to 6 and 8
constexpr std::uint32_t kPriority = 500;

constexpr int kTickMs = 1000;
constexpr int kFrameRateMs = 5000;

void SetLevel(std::string_view slider, float level) {
    GLWidget::GetByTag(slider)->SetLevel(level);
}

}  // namespace

App::App() : EventCatcher(nullptr) {
    TraceFrame frame("App", "App");
}

App::~App() {
    TraceFrame frame("~App", "App");
}

bool App::Init() {
    TraceFrame frame("Init", "App");
    InstallSignalHandlers();
    kernel = new Kernel;
    // Catchers get events in the order in which they join: input, then the window, then the game.
    // The kernel's records keep them alive.
    new SDLInput(kernel, false);
    new GLRender(kernel);
    kernel->AddChild(Pointer<EventCatcher>(this), kChannels, kPriority);
    kernel->MainLoop();
    return true;
}

bool App::GotEvent(Event event) {
    TraceFrame frame("GotEvent", "App");
    switch (event.type) {
    case LoadGraphicsResourcesEvent:
        picture = {};  // a new window has no textures yet
        kept = false;
        glClearColor(0.0f, 0.0f, 0.0f, 0.0f);
        GLWidget::StartGUI(kLayoutFile);
        return true;
    case InitialSetupEvent:
        std::srand(static_cast<unsigned>(std::time(nullptr)));
        CreateWorld();
        return true;
    case UpdateEvent:
        if (Update(event.time))
            return true;
        Assert("app", __LINE__, "kernel", !!kernel);
        kernel->SendEvent(Pointer<EventCatcher>(this), Event(QuitEvent));
        return false;
    case RenderEvent:
        Render(true);
        Assert("app", __LINE__, "kernel", !!kernel);
        return kernel->SendEvent(Pointer<EventCatcher>(this), Event(AfterRenderEvent));
    case MouseEvent:
        GLWidget::MouseMoveWidgets(
            Vector(static_cast<float>(event.x), static_cast<float>(event.y)));
        GLWidget::MouseClickWidgets(event.left, event.middle, event.right);
        return true;
    case KeyEvent:
        keys = event.keyboard;
        if (keys.down[kEscape])
            return false;
        GLWidget::TextKeyPressWidgets(keys.pressed);
        return true;
    case ReleaseResourcesEvent:
        EndWorld();
        return true;
    default:
        return true;
    }
}

void App::CreateWorld() {
    TraceFrame frame("CreateWorld", "App");
    world = std::make_unique<World>();
    for (const auto& country : world->countries)
        GLWidget::GetByTag(tag::kPartner)->AddText(country->name);
    GLWidget::GetByTag(tag::kNewspaper)->SetText(world->player.name + " Newspaper");
    controls::ClearOrder();
    SetLevel(tag::kLivestockRation, start::kRation);
    SetLevel(tag::kGrainRation, start::kRation);
    for (const Profession profession : kProfessions)
        SetLevel(tag::Of(profession).slider, start::Share(profession));
}

bool App::Update(std::uint32_t milliseconds) {
    TraceFrame frame("Update", "App");
    ++frames;
    // Unsigned: if the timer jumps, the sum wraps around instead of overflowing.
    elapsedMs = static_cast<int>(static_cast<std::uint32_t>(elapsedMs) + milliseconds);
    if (controls::ExitPressed())
        return false;

    if (elapsedMs > kTickMs) {
        world->Advance(World::RollClockSeconds());
        elapsedMs = 0;
    }
    if (controls::WeekPressed()) {
        ++weekPresses;
        world->Advance(kSecondsPerWeek);
    }

    Country& player = world->player;
    controls::StepRations();
    controls::SetJustice(player);
    controls::SetProfessions(player, firstFrame);
    if (firstFrame)
        partner = world->countries[start::kPartner].get();
    firstFrame = false;
    display.ShowProfessions(player);
    controls::SetRations(player);
    display.ShowRations(player);

    partner = controls::ChoosePartner(partner, *world);
    const controls::Order order = controls::ReadOrder(player, *partner);
    display.ShowOrder(order.livestock, order.grain, order.fineGoods);
    controls::Trade(player, *partner);

    display.ShowStore(player);
    display.ShowPopulation(player);
    display.ShowContinent(*world);
    display.ShowFunds(player);
    display.ShowDate(world->date);
    controls::TurnPage(page, world->newspaper.Stories().size());
    display.ShowPage(world->newspaper, page);
    display.ShowFigures(player);
    display.ShowOutlook(player);
    display.ShowGlance(player);
    newsDisplay.Show(world->chronicle);
    historyDisplay.Show(world->history);
    ReportFrameRate();

    GLWidget::UpdateWidgets(static_cast<int>(milliseconds));
    return true;
}

void App::ReportFrameRate() {
    TraceFrame frame("ReportFrameRate", "App");
    if (elapsedMs <= kFrameRateMs)
        return;
    // kept: the clock sets the sum to 0 every second, so the game never gets past this test
    display.ShowFrameRate(std::lround(frames * 1000.0 / elapsedMs));
    frames = 0;
    elapsedMs = 0;
}

bool App::Render(bool) {
    TraceFrame frame("Render", "App");
    const std::uint64_t latest = GLWidget::Appearance();
    const bool same = latest == appearance && exposures == GLRender::Exposures();
    appearance = latest;
    exposures = GLRender::Exposures();
    glLoadIdentity();
    if (same && kept) {
        glClear(GL_DEPTH_BUFFER_BIT);  // the picture covers the colours alone
        if (picture.Draw())
            return true;
    }
    DrawWidgets();
    // Kept only when it is drawn a second time. So nothing is copied while every frame differs, and
    // the copy cannot contain what the frame before left in OpenGL, such as its line width.
    kept = same && picture.Keep();
    return true;
}

void App::DrawWidgets() {
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glClearColor(0.0f, 0.0f, 0.8f, 1.0f);
    GLWidget::RenderWidgets();
}

bool App::Quit() {
    TraceFrame frame("Quit", "App");
    GLWidget::Quit();
    return true;
}

void App::EndWorld() {
    TraceFrame frame("EndWorld", "App");
    Quit();
    partner = nullptr;
    world.reset();
    buffers.clear();
}
