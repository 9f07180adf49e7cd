#include <cstddef>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include <spdlog/logger.h>
#include <spdlog/sinks/null_sink.h>

#include <kova/diagnostics/KOVAEvent.h>
#include <kova/diagnostics/KOVAEventBus.h>
#include <kova/diagnostics/KOVAEventListener.h>
#include <kova/diagnostics/KOVAInfo.h>

#include "rows.h"

namespace {

std::size_t allocations = 0;

} // namespace

// Not inlined, or the compiler sees memory of operator new go to free and warns.
[[gnu::noinline]] void* operator new(std::size_t size) {
    ++allocations;
    if (void* const memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}

namespace {

/// Compares an event's level with its own, as every logger does, and counts.
class Counter : public KOVAEventListener {
public:
    void HandleEvent(KOVAEvent& event) override {
        if (event.GetLevel() >= level_)
            ++count_;
    }

private:
    KOVAEventLevel level_ = KOVA_LEVEL_INFO;
    long count_ = 0;
};

/// A second kind, lest the compiler turn the virtual calls of the bare loop into guarded direct ones.
class DetailCounter : public KOVAEventListener {
public:
    void HandleEvent(KOVAEvent& event) override {
        if (event.GetLevel() < level_)
            ++count_;
    }

private:
    KOVAEventLevel level_ = KOVA_LEVEL_WARNING;
    long count_ = 0;
};

std::vector<std::unique_ptr<KOVAEventListener>> makeListeners(std::size_t count) {
    std::vector<std::unique_ptr<KOVAEventListener>> listeners;
    for (std::size_t i = 0; i < count; ++i) {
        if (i % 2 == 0)
            listeners.push_back(std::make_unique<Counter>());
        else
            listeners.push_back(std::make_unique<DetailCounter>());
    }
    return listeners;
}

/// Listeners that are on the bus while this lives.
class Registered {
public:
    explicit Registered(std::size_t count) : listeners_(makeListeners(count)) {
        for (auto const& listener : listeners_)
            KOVAEventBus::GetEventBus().AddListener(listener.get());
    }
    Registered(Registered const&) = delete;
    Registered& operator=(Registered const&) = delete;
    ~Registered() {
        for (auto const& listener : listeners_)
            KOVAEventBus::GetEventBus().RemoveListener(listener.get());
    }

private:
    std::vector<std::unique_ptr<KOVAEventListener>> listeners_;
};

/// Measures, and reports how often one operation calls operator new.
template <class Operation> void measureAllocating(benchmark::State& state, Operation const& operation) {
    std::size_t const before = allocations;
    bench::measure(state, operation);
    state.counters["allocations"] = static_cast<double>(allocations - before) / static_cast<double>(state.iterations());
}

/// The bare loop, written where it is used. With one listener the peer has no call but the virtual one.
void callAll(std::vector<KOVAEventListener*> const& listeners, KOVAEvent& event) {
    for (KOVAEventListener* const listener : listeners)
        listener->HandleEvent(event);
}

/// The same behind a call, which is the least that a bus in a library can cost.
[[gnu::noinline]] void callAllBehindCall(std::vector<KOVAEventListener*> const& listeners, KOVAEvent& event) {
    callAll(listeners, event);
}

template <class Loop> void addFireRow(std::string const& name, std::size_t count, Loop loop) {
    bench::row(
        name + " " + std::to_string(count), 1.3,
        [count](benchmark::State& state) {
            Registered const registered(count);
            KOVAEvent event("BenchEvent", KOVA_LEVEL_INFO);
            measureAllocating(state, [&] { KOVAEventBus::Fire(event); });
        },
        [count, loop](benchmark::State& state) {
            auto const listeners = makeListeners(count);
            std::vector<KOVAEventListener*> pointers;
            for (auto const& listener : listeners)
                pointers.push_back(listener.get());
            KOVAEvent event("BenchEvent", KOVA_LEVEL_INFO);
            measureAllocating(state, [&] { loop(pointers, event); });
        });
}

/// One line to one listener, beside a logger with one sink that throws everything away.
template <class Sink> void addMessageRow(std::string const& name) {
    static char const part[] = "bracket_left.stp";
    bench::row(
        name, 1.0,
        [](benchmark::State& state) {
            Registered const registered(1);
            int n = 0;
            measureAllocating(state, [&] { KOVAInfo::Printf("%s: %d triangles", part, ++n); });
        },
        [](benchmark::State& state) {
            spdlog::logger logger("bench", std::make_shared<Sink>());
            int n = 0;
            measureAllocating(state, [&] { logger.info("{}: {} triangles", part, ++n); });
        });
}

} // namespace

int main(int argc, char** argv) {
    for (std::size_t const count : {1U, 4U, 16U})
        addFireRow("Fire, loop of virtual calls", count,
                   [](auto& listeners, auto& event) { callAll(listeners, event); });
    for (std::size_t const count : {1U, 4U, 16U})
        addFireRow("Fire, loop behind a call", count,
                   [](auto& listeners, auto& event) { callAllBehindCall(listeners, event); });
    addMessageRow<spdlog::sinks::null_sink_st>("message, spdlog null_sink_st");
    addMessageRow<spdlog::sinks::null_sink_mt>("message, spdlog null_sink_mt");
    return bench::run(argc, argv);
}
