// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include "quarn2/event.h"
#include "quarn2/memory.h"

class Kernel;

/// Whatever receives events. It becomes a child of a kernel by Kernel::AddChild.
class EventCatcher : public MMObject {
public:
    /// @param newKernel  kept for the catcher's own use; may be null. It does not join the kernel.
    explicit EventCatcher(const Pointer<Kernel>& newKernel);
    ~EventCatcher() override;

    /// The event is the catcher's own copy.
    /// @return true when the event was handled or is of no interest; false is a failure and
    ///         ends the dispatch
    virtual bool GotEvent(Event ev) = 0;

protected:
    Pointer<Kernel> kernel;  ///< the one of the constructor; may be null
};
