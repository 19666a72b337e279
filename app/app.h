// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "app/display.h"
#include "app/historydisplay.h"
#include "app/newsdisplay.h"
#include "country/world.h"
#include "quarn2/event.h"
#include "quarn2/eventcatcher.h"
#include "quarn2/keptpicture.h"
#include "quarn2/memory.h"

/// The game: receives every kernel event, owns the world and advances it frame by frame.
class App : public EventCatcher {
public:
    App();
    ~App() override;

    bool GotEvent(Event event) override;

    /// Builds the engine and runs the game until it ends.
    /// @return true
    bool Init();

    // What the events do. Public, so that tests can call them without a window.

    /// Makes the world, fills the list of trade partners and sets the sliders' first levels. Does
    /// not seed rand().
    void CreateWorld();
    /// One frame of the game.
    /// @param milliseconds  since the previous one
    /// @return false if the player ends the game
    bool Update(std::uint32_t milliseconds);
    /// Draws the widgets into the cleared window, or the picture that was kept of them if nothing
    /// that can be seen has changed. @return true
    bool Render(bool flag);
    /// Ends the toolkit. @return true
    bool Quit();

    /// Null before CreateWorld and after ReleaseResourcesEvent.
    World* GetWorld() { return world.get(); }
    /// The trade partner; null before the first update.
    const Country* GetPartner() const { return partner; }

private:
    void EndWorld();
    void ReportFrameRate();
    void DrawWidgets();

    std::unique_ptr<World> world;
    std::vector<std::unique_ptr<char[]>> buffers;
    KeyboardEvent keys;
    int frames = 0;
    int elapsedMs = 0;

    bool firstFrame = true;
    Country* partner = nullptr;  // not owned
    unsigned page = 0;
    unsigned weekPresses = 0;
    Display display;
    NewsDisplay newsDisplay;
    HistoryDisplay historyDisplay;

    KeptPicture picture;
    bool kept = false;             // `picture` shows what was drawn last
    std::uint64_t appearance = 0;  // of the widgets as they were drawn last, 0 before that
    std::uint32_t exposures = 0;   // of the window, until then
};
