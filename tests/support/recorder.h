// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "quarn2/event.h"
#include "quarn2/eventcatcher.h"
#include "quarn2/kernel.h"

/// A catcher that writes each event that it receives into a journal, as "name type". Several may
/// share a journal.
class Recorder : public EventCatcher {
public:
    Recorder(std::string newName, std::vector<std::string>& newJournal)
        : EventCatcher(nullptr), name(std::move(newName)), journal(newJournal) {}

    bool GotEvent(Event ev) override {
        journal.push_back(name + ' ' + std::to_string(ev.type));
        if (act)
            act(ev);
        return !failing.contains(ev.type);
    }

    std::function<void(Event&)> act;  ///< may change its copy
    std::set<std::uint32_t> failing;  ///< types for which it returns false

private:
    std::string name;
    std::vector<std::string>& journal;
};
