#include <kova/diagnostics/KOVATimingLogger.h>

#include <cstdint>
#include <memory>
#include <string>

#include <kova/containers/string_map.h>
#include <kova/diagnostics/KOVAEventBus.h>
#include <kova/diagnostics/KOVAInfo.h>
#include <kova/diagnostics/task_pairs.h>
#include <kova/system/KOVAEnvironment.h>
#include <kova/text/numbers.h>

using kova::detail::fixedText;

struct KOVATimingLogger::Tasks {
    struct Total {
        std::int32_t count = 0;
        double seconds = 0.0;
    };

    kova::detail::TaskPairs pairs;
    kova::detail::StringMap<Total> totals;
};

KOVATimingLogger::~KOVATimingLogger() {
    std::unique_ptr<Tasks> const owner(tasks_);
    Finalize();
}

void KOVATimingLogger::Initialize() {
    if (on_)
        return;
    KOVAInfo::Printf("Task Timing On");
    KOVAEventBus::GetEventBus().AddListener(this);
    on_ = true;
}

void KOVATimingLogger::SetUp() {
    bool wanted = false;
    if (KOVAEnvironment::GetVariable("KOVATaskTiming", wanted).IsSuccess() && wanted)
        _timing.Initialize();
}

void KOVATimingLogger::Stop() {
    _timing.Finalize();
}

void KOVATimingLogger::HandleEvent(KOVAEvent& event) {
    if (!tasks_)
        tasks_ = std::make_unique<Tasks>().release();
    kova::detail::TaskStep const step = tasks_->pairs.take(event);
    if (!step.completed)
        return;
    Tasks::Total& total = tasks_->totals.value(tasks_->totals.findOrAdd(step.task));
    total.seconds += step.seconds;
    ++total.count;
    KOVAInfo::Printf("%.255s Time = %s seconds.", static_cast<char const*>(step.task),
                     fixedText(step.seconds, 2).c_str());
}

void KOVATimingLogger::Finalize() {
    if (!on_)
        return;
    if (tasks_ && tasks_->totals.size() > 0)
        report();
    KOVAEventBus::GetEventBus().RemoveListener(this);
    on_ = false;
}

void KOVATimingLogger::report() const {
    KOVAInfo::Printf("================ Task Timing Info ================");
    auto const& totals = tasks_->totals;
    for (int i = 0; i < totals.size(); ++i) {
        char const* const task = totals.name(i);
        std::string const seconds = fixedText(totals.value(i).seconds, 2);
        int const count = totals.value(i).count;
        if (count < 2)
            KOVAInfo::Printf("%32s Time = %10s", task, seconds.c_str());
        else
            KOVAInfo::Printf("%32s Time = %10s %8dx", task, seconds.c_str(), count);
    }
    KOVAInfo::Printf("==================================================");
}
