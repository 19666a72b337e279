// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/queuepass.h"

std::uint32_t QueuePass::exposures = 0;

QueuePass::QueuePass() {
    SDL_PumpEvents();
}

bool QueuePass::Next(SDL_Event& event) {
    if (SDL_PollEvent(&event) == 0)
        return false;
    lastType = event.type;
    if (event.type == SDL_VIDEOEXPOSE)
        ++exposures;
    return true;
}

void QueuePass::PutBack() {
    // kept: all kept events are lost if the last event taken is an expose event
    if (!kept.empty() && lastType != SDL_VIDEOEXPOSE)
        SDL_PeepEvents(kept.data(), static_cast<int>(kept.size()), SDL_ADDEVENT, SDL_ALLEVENTS);
}
