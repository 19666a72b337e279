// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include "quarn2/event.h"
#include "quarn2/memory.h"

class Kernel;

/// Base of everything that receives events. Kernel::AddChild makes it a child of a kernel.
class EventCatcher : public MMObject {
public:
    /// @param newKernel  kept for the catcher's own use; may be null. The catcher does not join it.
    explicit EventCatcher(const Pointer<Kernel>& newKernel);
    ~EventCatcher() override;

    /// The event is the catcher's own copy.
    /// @return true when the event was handled or is of no interest; false is a failure and
    ///         ends the dispatch
    virtual bool GotEvent(Event ev) = 0;

protected:
    Pointer<Kernel> kernel;  ///< as given to the constructor; may be null
};
