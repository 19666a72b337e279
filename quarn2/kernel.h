// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "quarn2/event.h"
#include "quarn2/eventcatcher.h"
#include "quarn2/memory.h"
#include "quarn2/timer.h"

/// One subscription. A catcher may have several.
struct Child {
    Child(const Pointer<EventCatcher>& newCatcher, std::uint32_t newMask, std::uint32_t newPriority)
        : catcher(newCatcher), mask(newMask), priority(newPriority) {}
    Child(const Child&) = default;
    Child& operator=(const Child& other);

    Pointer<EventCatcher> catcher;
    std::uint32_t mask;      ///< bit n subscribes to channel n
    std::uint32_t priority;  ///< kept for the catcher; delivery follows the order of joining
};

/// Sends events to its children and runs the program's main loop. Children must not be added,
/// changed or removed from inside GotEvent.
class Kernel : public EventCatcher {
public:
    /// Channels that a mask can name, from 0.
    static constexpr std::size_t kChannelCount = 9;

    Kernel();

    /// A catcher may join more than once, and then receives its events as often.
    bool AddChild(const Pointer<EventCatcher>& catcher, std::uint32_t mask, std::uint32_t priority);
    /// Removes the subscriptions of a catcher, except one that follows directly after a removed
    /// one.
    bool RemoveChild(const Pointer<EventCatcher>& catcher);
    /// Gives all subscriptions of a catcher another mask and priority. @return true
    bool ChangeProps(const Pointer<EventCatcher>& catcher, std::uint32_t mask,
                     std::uint32_t priority);

    /// Delivers a copy of the event to every child of its channels except the sender, which may be
    /// null. An unknown event type fails an assertion.
    /// @return false as soon as a catcher returned false: the others do not receive it
    bool SendEvent(const Pointer<EventCatcher>& sender, const Event& ev);
    /// Delivers a copy of the event to one child, if it subscribed to the event's channels.
    bool SendEventTo(const Pointer<EventCatcher>& target, const Event& ev);
    /// Delivers to all except `who` if `broadcast` is set, else to `who` alone.
    bool PropogateEvent(const Pointer<EventCatcher>& who, const Event& ev, bool broadcast);
    /// What the kernel does itself on an event: it notes a quit event.
    bool InternalEvent(const Event& ev);
    /// A kernel that is a child of another broadcasts what it gets to its own children.
    bool GotEvent(Event ev) override;

    /// Rebuilds the channels from the children.
    bool OrganiseChildren();

    /// Runs the program: the start-up events, then update and render until one of them fails,
    /// then the release of all resources. A failure at either end is one line on standard error.
    /// @return whether the start and the release succeeded
    bool MainLoop();

    /// Whether the last event of the main loop failed or a quit event came after it.
    bool QuitRequested() const { return quit; }

private:
    std::array<std::vector<std::int32_t>, kChannelCount> channels;  ///< indexes into `children`
    std::vector<Child> children;                                    ///< in order of joining
    bool quit = false;
    std::uint32_t internalmask = 0;  ///< channels whose events go to InternalEvent
    Pointer<Timer> timer;
};
