// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/kernel.h"

#include <iostream>
#include <iterator>

#include "quarn2/trace.h"

namespace {

constexpr int kNoChannel = -1;
constexpr std::uint32_t kQuitChannelMask = 1U << 1;

/// The channels of an event kind, in order of delivery.
struct Route {
    std::uint32_t type;
    int channels[2] = {kNoChannel, kNoChannel};
};

// One row per event kind, in order of value.
constexpr Route kRoutes[] = {
    {LoadResourcesEvent, {0, kNoChannel}},
    {OpenWindowEvent, {1, kNoChannel}},
    {LoadGraphicsResourcesEvent, {2, kNoChannel}},
    {InitialSetupEvent, {3, kNoChannel}},
    {UpdateEvent, {4, kNoChannel}},
    {RenderEvent, {5, kNoChannel}},
    {AfterRenderEvent, {7, kNoChannel}},
    {MouseEvent, {6, kNoChannel}},
    {KeyEvent, {8, kNoChannel}},
    {QuitEvent, {1, kNoChannel}},
    {ReleaseResourcesEvent, {2, 0}},  // graphics are released before other resources
};
static_assert(std::size(kRoutes) == ReleaseResourcesEvent - LoadResourcesEvent + 1);
static_assert([] {
    for (std::size_t row = 0; row < std::size(kRoutes); ++row) {
        if (kRoutes[row].type != LoadResourcesEvent + row)
            return false;
    }
    return true;
}());

const Route& RouteOf(std::uint32_t type) {
    const std::size_t row = std::size_t{type} - LoadResourcesEvent;
    if (row >= std::size(kRoutes)) {
        std::cerr << type << '\n';
        AssertFailed("kernel", 177, "\"Undefined event\" && 0");
    }
    return kRoutes[row];
}

Event OpenWindow() {
    Event event(OpenWindowEvent);
    event.caption = "Quarn Application";
    event.width = 800;
    event.height = 600;
    event.bpp = 24;
    event.fullscreen = false;
    return event;
}

Event Update(std::uint32_t elapsedMs) {
    Event event(UpdateEvent);
    event.time = elapsedMs;
    return event;
}

}  // namespace

Child& Child::operator=(const Child& other) {
    TraceFrame frame("operator=", "Child");
    catcher = other.catcher;
    mask = other.mask;
    priority = other.priority;
    return *this;
}

Kernel::Kernel() : EventCatcher(nullptr) {
    TraceFrame frame("Kernel", "Kernel");
}

bool Kernel::AddChild(const Pointer<EventCatcher>& catcher, std::uint32_t mask,
                      std::uint32_t priority) {
    TraceFrame frame("AddChild", "Kernel");
    children.emplace_back(catcher, mask, priority);
    OrganiseChildren();
    return true;
}

bool Kernel::RemoveChild(const Pointer<EventCatcher>& catcher) {
    TraceFrame frame("RemoveChild", "Kernel");
    for (std::size_t cursor = 0; cursor < children.size();) {
        // kept: the cursor is already after the record, so the next one, which moves into its
        // place, is skipped
        const auto record = children.begin() + static_cast<std::ptrdiff_t>(cursor++);
        if (record->catcher == catcher)
            children.erase(record);
    }
    OrganiseChildren();
    return true;
}

bool Kernel::ChangeProps(const Pointer<EventCatcher>& catcher, std::uint32_t mask,
                         std::uint32_t priority) {
    TraceFrame frame("ChangeProps", "Kernel");
    for (Child& child : children) {
        if (child.catcher == catcher) {
            child.mask = mask;
            child.priority = priority;
        }
    }
    OrganiseChildren();
    return true;
}

bool Kernel::SendEvent(const Pointer<EventCatcher>& sender, const Event& ev) {
    TraceFrame frame("SendEvent", "Kernel");
    return PropogateEvent(sender, ev, true);
}

bool Kernel::SendEventTo(const Pointer<EventCatcher>& target, const Event& ev) {
    TraceFrame frame("SendEventTo", "Kernel");
    return PropogateEvent(target, ev, false);
}

bool Kernel::PropogateEvent(const Pointer<EventCatcher>& who, const Event& ev, bool broadcast) {
    TraceFrame frame("PropogateEvent", "Kernel");
    const Route& route = RouteOf(ev.type);
    Assert("kernel", 181, "\"No matching event found, but no error returned\" && 0",
           route.channels[0] != kNoChannel);
    // Without a sender nobody is left out, not even a child without a catcher: it fails an
    // assertion.
    const bool everybody = broadcast && !who;
    for (const int channel : route.channels) {
        if (channel == kNoChannel)
            break;
        if ((internalmask >> channel & 1U) != 0 && !InternalEvent(ev)) {
            std::cerr << "Error processing an internal event\n";
            return false;
        }
        for (const std::int32_t index : channels[static_cast<std::size_t>(channel)]) {
            const Child& child = children[static_cast<std::size_t>(index)];
            const bool isWho = child.catcher == who;
            if ((everybody || isWho != broadcast) && !child.catcher->GotEvent(ev))
                return false;
        }
    }
    return true;
}

bool Kernel::InternalEvent(const Event& ev) {
    TraceFrame frame("InternalEvent", "Kernel");
    if (ev.type == QuitEvent)
        quit = true;
    return true;
}

bool Kernel::GotEvent(Event ev) {
    TraceFrame frame("GotEvent", "Kernel");
    return SendEvent(this, ev);
}

bool Kernel::OrganiseChildren() {
    TraceFrame frame("OrganiseChildren", "Kernel");
    for (std::size_t channel = 0; channel < kChannelCount; ++channel) {
        channels[channel].clear();
        for (std::size_t index = 0; index < children.size(); ++index) {
            if ((children[index].mask >> channel & 1U) != 0)
                channels[channel].push_back(static_cast<std::int32_t>(index));
        }
    }
    return true;
}

bool Kernel::MainLoop() {
    TraceFrame frame("MainLoop", "Kernel");
    quit = false;
    if (!timer)
        timer = new Timer;

    const auto send = [this](const Event& event) {
        // kept: this overwrites what a quit event set, so that only a failure ends the run
        quit = !SendEvent(nullptr, event);
        return !quit;
    };
    if (!send(Event(LoadResourcesEvent))) {
        std::cerr << "Error sending load resources event\n";
        return false;
    }
    if (!send(OpenWindow())) {
        std::cerr << "Error sending openwindow event\n";
        return false;
    }
    if (!send(Event(LoadGraphicsResourcesEvent))) {
        std::cerr << "Error sending load graphics resources event\n";
        return false;
    }
    if (!send(Event(InitialSetupEvent))) {
        std::cerr << "Error sending initial setup event\n";
        return false;
    }

    internalmask = kQuitChannelMask;
    std::uint32_t last = timer->GetTime();
    while (!quit) {
        const std::uint32_t now = timer->GetTime();
        if (!send(Update(now - last)))
            break;
        send(Event(RenderEvent));
        last = now;
    }

    if (!SendEvent(nullptr, Event(ReleaseResourcesEvent))) {
        std::cerr << "Error sending release resources event\n";
        return false;
    }
    return true;
}
