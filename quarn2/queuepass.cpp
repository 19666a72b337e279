// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/queuepass.h"

QueuePass::QueuePass() {
    SDL_PumpEvents();
}

bool QueuePass::Next(SDL_Event& event) {
    if (SDL_PollEvent(&event) == 0)
        return false;
    lastType = event.type;
    return true;
}

void QueuePass::PutBack() {
    // kept: an expose event that was taken last takes all the kept events with it
    if (!kept.empty() && lastType != SDL_VIDEOEXPOSE)
        SDL_PeepEvents(kept.data(), static_cast<int>(kept.size()), SDL_ADDEVENT, SDL_ALLEVENTS);
}
