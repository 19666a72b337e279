// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/trace.h"

#include <benchmark/benchmark.h>

#include <list>
#include <string>

#include "tests/support/allocations.h"

namespace {

/// The simplest guard: it takes its names as strings, joins them and keeps the text.
class JoiningGuard {
public:
    JoiningGuard(const std::string& function, const std::string& className) {
        Texts().push_back(className + "::" + function);
    }
    ~JoiningGuard() { Texts().pop_back(); }
    JoiningGuard(const JoiningGuard&) = delete;
    JoiningGuard& operator=(const JoiningGuard&) = delete;

private:
    static std::list<std::string>& Texts() {
        static std::list<std::string> texts;
        return texts;
    }
};

/// Adds the mean number of allocations per call to a case's report.
class CountAllocations {
public:
    explicit CountAllocations(benchmark::State& newState) : state(newState) {}
    ~CountAllocations() {
        state.counters["allocations"] = benchmark::Counter(
            static_cast<double>(AllocationCount() - before), benchmark::Counter::kAvgIterations);
    }
    CountAllocations(const CountAllocations&) = delete;
    CountAllocations& operator=(const CountAllocations&) = delete;

private:
    benchmark::State& state;
    std::size_t before = AllocationCount();
};

[[gnu::noinline]] int Untraced(int value) {
    benchmark::DoNotOptimize(value);
    return value;
}

[[gnu::noinline]] int Traced(int value) {
    const TraceFrame frame("PropogateEvent", "Kernel");
    benchmark::DoNotOptimize(value);
    return value;
}

[[gnu::noinline]] int Joined(int value) {
    const JoiningGuard frame("PropogateEvent", "Kernel");
    benchmark::DoNotOptimize(value);
    return value;
}

[[gnu::noinline]] int Asserted(int value) {
    Assert("kernel", 181, "\"No matching event found, but no error returned\" && 0", value != 0);
    benchmark::DoNotOptimize(value);
    return value;
}

/// Calls the function from a few frames deep, with tracing on.
template <int (*function)(int)>
void Call(benchmark::State& state) {
    trace::Start();
    const TraceFrame program("main", "");
    const TraceFrame init("Init", "App");
    const TraceFrame loop("MainLoop", "Kernel");
    const CountAllocations count(state);
    for ([[maybe_unused]] auto iteration : state)
        benchmark::DoNotOptimize(function(1));
}

void GuardWhileTracingIsOff(benchmark::State& state) {
    trace::tracing = false;
    const CountAllocations count(state);
    for ([[maybe_unused]] auto iteration : state)
        benchmark::DoNotOptimize(Traced(1));
}

BENCHMARK(Call<Untraced>)->Name("CallWithoutAGuard");
BENCHMARK(GuardWhileTracingIsOff);
BENCHMARK(Call<Traced>)->Name("CallWithTheTraceGuard");
BENCHMARK(Call<Joined>)->Name("CallWithAJoiningGuard");
BENCHMARK(Call<Asserted>)->Name("CallWithAnAssertionThatHolds");

}  // namespace

BENCHMARK_MAIN();
