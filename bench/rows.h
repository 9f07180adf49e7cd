#pragma once

#include <string>
#include <type_traits>

#include <benchmark/benchmark.h>

/// A row is our operation beside what a user would pick instead, measured in the same run.
namespace bench {

/// Times an operation. Its result, if it has one, counts as used.
template <class Operation> void measure(benchmark::State& state, Operation const& operation) {
    for (auto _ : state) {
        if constexpr (std::is_void_v<decltype(operation())>) {
            operation();
            benchmark::ClobberMemory();
        } else {
            benchmark::DoNotOptimize(operation());
        }
    }
}

/// Registers a row of two functions that set up and measure; target is the ratio of their times
/// (ours / peer) to stay at or below.
template <class Ours, class Peer> void row(std::string const& name, double target, Ours ours, Peer peer) {
    benchmark::RegisterBenchmark((name + "/ours").c_str(), [ours, target](benchmark::State& state) {
        ours(state);
        state.counters["target"] = target;
    });
    benchmark::RegisterBenchmark((name + "/peer").c_str(), peer);
}

/// The same for two operations that need no setting up.
template <class Ours, class Peer> void plainRow(std::string const& name, double target, Ours ours, Peer peer) {
    row(
        name, target, [ours](benchmark::State& state) { measure(state, ours); },
        [peer](benchmark::State& state) { measure(state, peer); });
}

/// Runs what was registered; the result is for main to return.
inline int run(int count, char** arguments) {
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

} // namespace bench
