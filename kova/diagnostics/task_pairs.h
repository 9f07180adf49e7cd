#pragma once

#include <cstdint>

#include <kova/containers/KOVADynamicArray.h>
#include <kova/containers/string_map.h>
#include <kova/core/export.h>
#include <kova/text/KOVAString.h>

class KOVAEvent;

namespace kova::detail {

/// What an event says about a task.
struct TaskStep {
    KOVAString task;        ///< the identifier; empty when the event is about no task
    bool completed = false; ///< the event ended a task whose start was seen
    double seconds = 0.0;   ///< how long that one took
};

/// Pairs the end of each task with its start, by identifier.
///
/// Tasks nest. The end of one discards those that were started within it and never ended; their ends, should
/// they come, are ignored. Of two open tasks with one identifier, the later one ends.
class KOVA_API TaskPairs {
public:
    /// Takes the events in the order in which they are delivered.
    TaskStep take(KOVAEvent& event);

private:
    struct OpenTask {
        KOVAString task;
        std::int32_t time;  ///< seconds of the calendar
        std::int32_t clock; ///< milliseconds of the processor
    };

    void start(OpenTask const& task);
    void end(OpenTask const& task, TaskStep& step);

    KOVADynamicArray<OpenTask> open_;   ///< innermost last
    StringMap<std::int32_t> positions_; ///< in open_, of the latest start of each identifier
};

} // namespace kova::detail
