// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <benchmark/benchmark.h>

#include <cstring>

#include "quarn2/event.h"
#include "quarn2/kernel.h"
#include "quarn2/trace.h"
#include "tests/support/allocations.h"

namespace {

/// Does nothing with its copy.
class Catcher : public EventCatcher {
public:
    Catcher() : EventCatcher(nullptr) {}
    bool GotEvent(Event ev) override {
        benchmark::DoNotOptimize(ev);
        return true;
    }
};

/// Adds the mean number of allocations per event to a case's report.
void Report(benchmark::State& state, std::size_t allocationsBefore) {
    state.counters["allocations"] =
        benchmark::Counter(static_cast<double>(AllocationCount() - allocationsBefore),
                           benchmark::Counter::kAvgIterations);
}

/// The lowest cost of a copy of an event.
void CopyTheBytesOfAnEvent(benchmark::State& state) {
    alignas(Event) unsigned char from[sizeof(Event)] = {};
    alignas(Event) unsigned char to[sizeof(Event)];
    for ([[maybe_unused]] auto iteration : state) {
        benchmark::DoNotOptimize(from);
        std::memcpy(to, from, sizeof to);
        benchmark::DoNotOptimize(to);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(sizeof(Event)));
}

void CopyAnEvent(benchmark::State& state) {
    const Event event(UpdateEvent);
    const std::size_t before = AllocationCount();
    for ([[maybe_unused]] auto iteration : state) {
        Event copy = event;
        benchmark::DoNotOptimize(copy);
    }
    Report(state, before);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(sizeof(Event)));
}

void CopyAnEventWithACaption(benchmark::State& state) {
    Event event(OpenWindowEvent);
    event.caption = "Quarn Application";
    const std::size_t before = AllocationCount();
    for ([[maybe_unused]] auto iteration : state) {
        Event copy = event;
        benchmark::DoNotOptimize(copy);
    }
    Report(state, before);
}

void MakeAnEvent(benchmark::State& state) {
    trace::Start();
    for ([[maybe_unused]] auto iteration : state) {
        Event event(UpdateEvent);
        benchmark::DoNotOptimize(event);
    }
    trace::tracing = false;
}

/// One update event from the sender to as many catchers as the argument says.
void DispatchThroughTheKernel(benchmark::State& state) {
    trace::Start();
    {
        const Pointer<Kernel> kernel = new Kernel;
        for (std::int64_t catcher = 0; catcher < state.range(0); ++catcher)
            kernel->AddChild(new Catcher, 0x1ff, 500);
        const Event event(UpdateEvent);
        const std::size_t before = AllocationCount();
        for ([[maybe_unused]] auto iteration : state)
            benchmark::DoNotOptimize(kernel->SendEvent(nullptr, event));
        Report(state, before);
    }
    MMObject::CollectGarbage();
    trace::tracing = false;
}

BENCHMARK(CopyTheBytesOfAnEvent);
BENCHMARK(CopyAnEvent);
BENCHMARK(CopyAnEventWithACaption);
BENCHMARK(MakeAnEvent);
BENCHMARK(DispatchThroughTheKernel)->Arg(1)->Arg(3)->Arg(10);

}  // namespace

BENCHMARK_MAIN();
