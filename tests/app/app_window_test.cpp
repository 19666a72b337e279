// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// The game in its own window, from its first event to its last.

#include <GL/gl.h>
#include <SDL.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "app/app.h"
#include "tests/app/game_fixture.h"
#include "tests/support/event_queue.h"

namespace {

/// Records the events that reach the game. A test can act before and after each.
class PlayedGame : public App {
public:
    bool GotEvent(Event event) override {
        kinds.push_back(event.type);
        if (before)
            before(event.type);
        const bool result = App::GotEvent(event);
        if (after)
            after(event.type);
        return result;
    }

    std::ptrdiff_t Count(std::uint32_t kind) const {
        return std::count(kinds.begin(), kinds.end(), kind);
    }

    std::vector<std::uint32_t> kinds;
    std::function<void(std::uint32_t)> before;
    std::function<void(std::uint32_t)> after;
};

class AppWindowTest : public GameTest {
protected:
    void SetUp() override {
        GameTest::SetUp();
        WriteLayout("my.gui.debug");
        app = game;
    }
    void TearDown() override {
        if (SDL_WasInit(SDL_INIT_VIDEO) != 0)
            SDL_QuitSubSystem(SDL_INIT_VIDEO);
        GameTest::TearDown();
    }

    /// Plays until `end` ends the game; it is called after every picture but the first. Records
    /// whether there is a window when the game releases its resources.
    void PlayUntil(const std::function<void()>& end) {
        game->after = [this, end](std::uint32_t kind) {
            if (kind == RenderEvent && game->Count(RenderEvent) > 1)
                end();
        };
        game->before = [this](std::uint32_t kind) {
            if (kind == ReleaseResourcesEvent)
                hasWindowAtTheEnd = SDL_WasInit(SDL_INIT_VIDEO) != 0;
        };
        EXPECT_TRUE(game->Init());
        // The real pointer may be over the window; its events do not belong to the test.
        std::erase(game->kinds, std::uint32_t{MouseEvent});
    }

    using Kinds = std::vector<std::uint32_t>;
    /// The last events that the game received.
    Kinds Last(std::ptrdiff_t count) const {
        return {game->kinds.end() - count, game->kinds.end()};
    }

    PlayedGame* const game = new PlayedGame;
    bool hasWindowAtTheEnd = false;
};

TEST_F(AppWindowTest, ExitButtonClosesTheWindowBeforeResourcesAreReleased) {
    PlayUntil([this] { Click("exitbut"); });
    EXPECT_FALSE(hasWindowAtTheEnd);
    // The game itself sends the quit event and the events after each picture, so it does not
    // receive them.
    EXPECT_EQ(game->kinds, (Kinds{OpenWindowEvent, LoadGraphicsResourcesEvent, InitialSetupEvent,
                                  KeyEvent, UpdateEvent, RenderEvent, KeyEvent, UpdateEvent,
                                  RenderEvent, KeyEvent, UpdateEvent, ReleaseResourcesEvent}));
}

TEST_F(AppWindowTest, EscapeEndsTheGameWithoutAnUpdateAndBeforeTheWindowIsClosed) {
    PlayUntil([] { EventQueue::PushKey(true, SDLK_ESCAPE, SDLK_ESCAPE); });
    EXPECT_TRUE(hasWindowAtTheEnd);
    EXPECT_EQ(Last(4), (Kinds{UpdateEvent, RenderEvent, KeyEvent, ReleaseResourcesEvent}));
}

TEST_F(AppWindowTest, CloseRequestEndsTheGameWithoutAnUpdateAndBeforeTheWindowIsClosed) {
    PlayUntil([] { EventQueue::Push(SDL_QUIT); });
    EXPECT_TRUE(hasWindowAtTheEnd);
    EXPECT_EQ(Last(4), (Kinds{UpdateEvent, RenderEvent, KeyEvent, ReleaseResourcesEvent}));
}

TEST_F(AppWindowTest, BackgroundOfTheFirstPictureIsBlackAndOfLaterOnesDarkBlue) {
    using ClearColour = std::array<float, 4>;
    std::vector<ClearColour> clearColours;
    std::vector<std::array<std::uint8_t, 3>> pixels;
    std::vector<float> depths;
    std::vector<float> shifts;  // of the model-view matrix
    game->before = [&](std::uint32_t kind) {
        if (kind == UpdateEvent && game->Count(UpdateEvent) == 4)
            Click("exitbut");
        if (kind != RenderEvent)
            return;
        glTranslatef(0.5f, 0.0f, 0.0f);
        glClearDepth(0.25);
        glClear(GL_DEPTH_BUFFER_BIT);
        glClearDepth(1.0);
    };
    game->after = [&](std::uint32_t kind) {
        if (kind != LoadGraphicsResourcesEvent && kind != RenderEvent)
            return;
        ClearColour colour{};
        glGetFloatv(GL_COLOR_CLEAR_VALUE, colour.data());
        clearColours.push_back(colour);
        if (kind != RenderEvent)
            return;
        glReadPixels(400, 300, 1, 1, GL_RGB, GL_UNSIGNED_BYTE, pixels.emplace_back().data());
        glReadPixels(400, 300, 1, 1, GL_DEPTH_COMPONENT, GL_FLOAT, &depths.emplace_back());
        std::array<float, 16> modelView{};
        glGetFloatv(GL_MODELVIEW_MATRIX, modelView.data());
        shifts.push_back(modelView[12]);
    };
    EXPECT_TRUE(game->Init());
    const ClearColour black{0.0f, 0.0f, 0.0f, 0.0f};
    const ClearColour darkBlue{0.0f, 0.0f, 0.8f, 1.0f};
    EXPECT_EQ(clearColours, (std::vector<ClearColour>{black, darkBlue, darkBlue, darkBlue}));
    ASSERT_EQ(pixels.size(), 3U);
    for (std::size_t frame = 0; frame < pixels.size(); ++frame) {
        EXPECT_EQ(pixels[frame][0], 0);
        EXPECT_EQ(pixels[frame][1], 0);
        EXPECT_NEAR(pixels[frame][2], frame == 0 ? 0 : 204, 1);
    }
    EXPECT_EQ(depths, std::vector<float>(3, 1.0f));
    EXPECT_EQ(shifts, std::vector<float>(3, 0.0f));
}

}  // namespace
