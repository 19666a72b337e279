// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/event.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::Each;

TEST(EventTest, StartsClearWithAWindowOfTheUsualSize) {
    const Event event;
    EXPECT_EQ(event.type, 0U);
    EXPECT_EQ(event.x, 0);
    EXPECT_EQ(event.y, 0);
    EXPECT_EQ(event.z, 0);
    EXPECT_FALSE(event.left);
    EXPECT_FALSE(event.middle);
    EXPECT_FALSE(event.right);
    EXPECT_EQ(event.time, 0U);
    EXPECT_EQ(event.caption, "");
    EXPECT_EQ(event.width, 800);
    EXPECT_EQ(event.height, 600);
    EXPECT_EQ(event.bpp, 24);
    EXPECT_FALSE(event.fullscreen);
}

TEST(EventTest, KeyboardStartsWithAllKeysUp) {
    const KeyboardEvent keyboard;
    EXPECT_EQ(keyboard.down.size(), 512U);
    EXPECT_THAT(keyboard.down, Each(false));
    EXPECT_EQ(keyboard.pressed.size(), 512U);
    EXPECT_THAT(keyboard.pressed, Each(false));
    EXPECT_EQ(keyboard.mods, 0U);
}

TEST(EventTest, KindsHaveTheirNumbers) {
    EXPECT_EQ(LoadResourcesEvent, 16);
    EXPECT_EQ(OpenWindowEvent, 17);
    EXPECT_EQ(LoadGraphicsResourcesEvent, 18);
    EXPECT_EQ(InitialSetupEvent, 19);
    EXPECT_EQ(UpdateEvent, 20);
    EXPECT_EQ(RenderEvent, 21);
    EXPECT_EQ(AfterRenderEvent, 22);
    EXPECT_EQ(MouseEvent, 23);
    EXPECT_EQ(KeyEvent, 24);
    EXPECT_EQ(QuitEvent, 25);
    EXPECT_EQ(ReleaseResourcesEvent, 26);
}

TEST(EventTest, CopyHasEveryField) {
    Event event(OpenWindowEvent);
    event.x = 1;
    event.y = 2;
    event.z = 3;
    event.dx = 4;
    event.dy = 5;
    event.dz = 6;
    event.left = event.middle = event.right = true;
    event.keyboard.down[511] = true;
    event.keyboard.pressed[0] = true;
    event.keyboard.mods = 7;
    event.time = 8;
    event.caption = "a caption that is too long for a short string";
    event.width = 9;
    event.height = 10;
    event.bpp = 11;
    event.fullscreen = true;

    const Event copy = event;
    event = Event();
    EXPECT_EQ(copy.type, 17U);
    EXPECT_EQ(copy.x, 1);
    EXPECT_EQ(copy.y, 2);
    EXPECT_EQ(copy.z, 3);
    EXPECT_EQ(copy.dx, 4);
    EXPECT_EQ(copy.dy, 5);
    EXPECT_EQ(copy.dz, 6);
    EXPECT_TRUE(copy.left);
    EXPECT_TRUE(copy.middle);
    EXPECT_TRUE(copy.right);
    EXPECT_TRUE(copy.keyboard.down[511]);
    EXPECT_FALSE(copy.keyboard.down[0]);
    EXPECT_TRUE(copy.keyboard.pressed[0]);
    EXPECT_FALSE(copy.keyboard.pressed[511]);
    EXPECT_EQ(copy.keyboard.mods, 7U);
    EXPECT_EQ(copy.time, 8U);
    EXPECT_EQ(copy.caption, "a caption that is too long for a short string");
    EXPECT_EQ(copy.width, 9);
    EXPECT_EQ(copy.height, 10);
    EXPECT_EQ(copy.bpp, 11);
    EXPECT_TRUE(copy.fullscreen);
}

}  // namespace
