// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/memory.h"

#include <list>

bool MMObject::shutdown = false;

namespace {

/// Every managed object, in order of construction. Never destroyed, so that objects that were not
/// collected stay reachable.
std::list<MMObject*>& Registry() {
    static std::list<MMObject*>& registry = *new std::list<MMObject*>;
    return registry;
}

/// Frees, in order of registration, the objects that `spares` is false for. This may lower the
/// count of a later object, which is then freed in the same pass.
template <typename Predicate>
void Sweep(Predicate spares) {
    std::list<MMObject*>& registry = Registry();
    for (auto entry = registry.begin(); entry != registry.end();) {
        MMObject* const object = *entry++;
        if (spares(object))
            continue;
        registry.remove(object);
        delete object;
    }
}

}  // namespace

MMObject::MMObject() {
    TraceFrame frame("MMObject", "MMObject");
    Assert("quarn2/memory", 34, "!shutdown", !shutdown);
    Registry().push_back(this);
}

MMObject::~MMObject() {
    TraceFrame frame("~MMObject", "MMObject");
    Assert("quarn2/memory", 46, "refcount==0 || shutdown", refcount == 0 || shutdown);
}

void MMObject::AddRef() {
    TraceFrame frame("AddRef", "MMObject");
    if (!shutdown)
        ++refcount;
}

void MMObject::Release() {
    TraceFrame frame("Release", "MMObject");
    if (!shutdown)
        --refcount;
}

void MMObject::CollectGarbage() {
    TraceFrame frame("CollectGarbage", "MMObject");
    Sweep([](const MMObject* object) { return object->refcount > 0; });
}

void MMObject::CollectAll() {
    TraceFrame frame("CollectAll", "MMObject");
    shutdown = true;
    Sweep([](const MMObject*) { return false; });
}

std::size_t MMObject::RegisteredCount() {
    return Registry().size();
}
