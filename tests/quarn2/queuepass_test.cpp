// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/queuepass.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/event_queue.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class QueuePassTest : public testing::Test {
protected:
    /// One pass that keeps everything but key events.
    static void Pass() {
        QueuePass pass;
        for (SDL_Event event; pass.Next(event);) {
            if (event.type != SDL_KEYDOWN)
                pass.Keep(event);
        }
        pass.PutBack();
    }

    EventQueue queue;
};

TEST_F(QueuePassTest, PassOverAnEmptyQueueEndsAtOnce) {
    QueuePass pass;
    SDL_Event event;
    EXPECT_FALSE(pass.Next(event));
    pass.PutBack();
    EXPECT_THAT(EventQueue::Take(), IsEmpty());
}

TEST_F(QueuePassTest, KeptEventsGoBackInTheirOrder) {
    EventQueue::PushUser(1);
    EventQueue::Push(SDL_QUIT);
    EventQueue::PushUser(2);
    EventQueue::PushUser(3);
    Pass();
    EXPECT_THAT(EventQueue::Take(), ElementsAre(1, -SDL_QUIT, 2, 3));
}

TEST_F(QueuePassTest, UsedEventsDoNotGoBack) {
    EventQueue::PushUser(1);
    EventQueue::PushKey(true, 'a');
    EventQueue::PushUser(2);
    Pass();
    EXPECT_THAT(EventQueue::Take(), ElementsAre(1, 2));
}

TEST_F(QueuePassTest, AllKeptEventsAreLostIfTheLastIsAnExpose) {
    EventQueue::PushUser(1);
    EventQueue::Push(SDL_QUIT);
    EventQueue::Push(SDL_VIDEOEXPOSE);
    Pass();
    EXPECT_THAT(EventQueue::Take(), IsEmpty());
}

TEST_F(QueuePassTest, ExposeBeforeTheEndGoesBackWithTheOthers) {
    EventQueue::PushUser(1);
    EventQueue::Push(SDL_VIDEOEXPOSE);
    EventQueue::PushUser(2);
    Pass();
    EXPECT_THAT(EventQueue::Take(), ElementsAre(1, -SDL_VIDEOEXPOSE, 2));
}

TEST_F(QueuePassTest, KeptEventsGoBackIfAUsedEventFollowsTheExpose) {
    EventQueue::PushUser(1);
    EventQueue::Push(SDL_VIDEOEXPOSE);
    EventQueue::PushKey(true, 'a');
    Pass();
    EXPECT_THAT(EventQueue::Take(), ElementsAre(1, -SDL_VIDEOEXPOSE));
}

TEST_F(QueuePassTest, FullQueueGoesBackWhole) {
    std::vector<int> codes;
    SDL_Event event{};
    event.type = SDL_USEREVENT;
    for (event.user.code = 0; SDL_PushEvent(&event) == 0; ++event.user.code)
        codes.push_back(event.user.code);
    EXPECT_GE(codes.size(), 127U);
    Pass();
    EXPECT_EQ(EventQueue::Take(), codes);
}

}  // namespace
