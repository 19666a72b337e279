// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>

#include "quarn2/trace.h"

/// Base of the engine's long-lived objects: created with `new`, held in `Pointer`s and
/// freed only by the two collector functions, never by hand.
class MMObject {
public:
    MMObject();
    virtual ~MMObject();
    MMObject(const MMObject&) = delete;
    MMObject& operator=(const MMObject&) = delete;

    // Neither is virtual, and both test `shutdown` first: during the final sweep a Pointer
    // may still refer to an object that was freed.
    /// Counts one more Pointer.
    void AddRef();
    /// Counts one Pointer less and frees nothing. Too many calls make the count negative.
    void Release();

    /// Number of Pointers that refer to this object.
    std::int32_t RefCount() const { return refcount; }

    /// One pass in order of registration that frees every object with a count of zero or less.
    static void CollectGarbage();
    /// Frees every registered object. After that no managed object can be made.
    static void CollectAll();

    /// Number of objects that await collection.
    static std::size_t RegisteredCount();

private:
    template <typename T>
    friend class Pointer;

    static bool shutdown;

    std::int32_t refcount = 0;
};

/// A reference to a managed object of class T. It counts, but never frees.
template <typename T>
class Pointer {
public:
    Pointer(T* object = nullptr) : obj(nullptr) {  // NOLINT(google-explicit-constructor)
        TraceFrame frame("Pointer", "Pointer");
        *this = object;
    }
    Pointer(const Pointer& other) : obj(nullptr) {
        TraceFrame frame("Pointer", "Pointer");
        *this = static_cast<T*>(other);
    }
    ~Pointer() {
        TraceFrame frame("~Pointer", "~Pointer");  // kept: twice the same name
        if (IsCounting())
            obj->Release();
    }

    Pointer& operator=(T* object) {
        TraceFrame frame("operator=", "Pointer");
        // Self-assignment is harmless: Release frees nothing.
        if (IsCounting())
            obj->Release();
        obj = object;
        if (IsCounting())
            obj->AddRef();
        return *this;
    }
    // NOLINTNEXTLINE(bugprone-unhandled-self-assignment): see above
    Pointer& operator=(const Pointer& other) { return *this = other.obj; }

    T* operator->() const {
        TraceFrame frame("operator->", "Pointer");
        Assert("quarn2/memory", 160, "obj!=NULL", obj != nullptr);
        return obj;
    }
    operator T*() const {  // NOLINT(google-explicit-constructor)
        TraceFrame frame("operator T*", "Pointer");
        return obj;
    }
    bool operator==(const Pointer& other) const {
        TraceFrame frame("operator==", "Pointer");
        return obj == other.obj;
    }
    bool operator!() const {
        TraceFrame frame("operator!", "Pointer");
        return obj == nullptr;
    }

private:
    /// False once the final sweep has begun, which frees objects that Pointers still refer to.
    bool IsCounting() const { return obj != nullptr && !MMObject::shutdown; }

    T* obj;
};
