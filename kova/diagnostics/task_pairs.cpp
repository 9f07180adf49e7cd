#include <kova/diagnostics/task_pairs.h>

#include <ctime>

#include <kova/diagnostics/KOVATaskEvents.h>

namespace kova::detail {

namespace {

/// The processor clock wraps around; it is trusted for ten minutes, longer tasks go by the calendar.
double secondsBetween(std::int32_t startTime, std::int32_t endTime, std::int32_t startClock, std::int32_t endClock) {
    constexpr double kLongestByClock = 600.0;
    double const wall = std::difftime(endTime, startTime);
    if (wall > kLongestByClock)
        return wall;
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(endClock) - static_cast<std::uint32_t>(startClock)) *
           0.001;
}

} // namespace

TaskStep TaskPairs::take(KOVAEvent& event) {
    TaskStep step;
    KOVATaskEvent* const task = event.IsTimed() ? dynamic_cast<KOVATaskEvent*>(&event) : nullptr;
    long time = 0;
    long clock = 0;
    if (!task || task->GetTaskIdentifier(step.task).IsFailure() || event.GetTime(time).IsFailure() ||
        event.GetClock(clock).IsFailure())
        return step;
    OpenTask const now = {step.task, static_cast<std::int32_t>(time), static_cast<std::int32_t>(clock)};
    if (task->GetKind() == KOVATaskEvent::Start)
        start(now);
    else if (task->GetKind() == KOVATaskEvent::End)
        end(now, step);
    return step;
}

void TaskPairs::start(OpenTask const& task) {
    positions_.value(positions_.findOrAdd(task.task)) = open_.size();
    open_.add(task);
}

void TaskPairs::end(OpenTask const& task, TaskStep& step) {
    int const known = positions_.find(task.task);
    int const position = known >= 0 ? positions_.value(known) : open_.size();
    // Another task may lie where this one lay before it was discarded.
    if (position >= open_.size() || open_[position].task != task.task)
        return;
    OpenTask const& started = open_[position];
    step.completed = true;
    step.seconds = secondsBetween(started.time, task.time, started.clock, task.clock);
    open_.endShrink(open_.size() - position);
}

} // namespace kova::detail
