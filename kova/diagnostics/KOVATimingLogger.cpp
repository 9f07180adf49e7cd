#include <kova/diagnostics/KOVATimingLogger.h>

#include <string>

#include <kova/diagnostics/KOVAEventBus.h>
#include <kova/diagnostics/KOVAInfo.h>
#include <kova/system/KOVAEnvironment.h>
#include <kova/text/numbers.h>

using kova::detail::fixedText;

KOVATimingLogger::~KOVATimingLogger() {
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
    kova::detail::TaskStep const step = tasks_.take(event);
    if (!step.completed)
        return;
    Total& total = totals_.value(totals_.findOrAdd(step.task));
    total.seconds += step.seconds;
    ++total.count;
    KOVAInfo::Printf("%.255s Time = %s seconds.", static_cast<char const*>(step.task),
                     fixedText(step.seconds, 2).c_str());
}

void KOVATimingLogger::Finalize() {
    if (!on_)
        return;
    if (totals_.size() > 0)
        report();
    KOVAEventBus::GetEventBus().RemoveListener(this);
    on_ = false;
}

void KOVATimingLogger::report() const {
    KOVAInfo::Printf("================ Task Timing Info ================");
    for (int i = 0; i < totals_.size(); ++i) {
        char const* const task = totals_.name(i);
        std::string const seconds = fixedText(totals_.value(i).seconds, 2);
        int const count = totals_.value(i).count;
        if (count < 2)
            KOVAInfo::Printf("%32s Time = %10s", task, seconds.c_str());
        else
            KOVAInfo::Printf("%32s Time = %10s %8dx", task, seconds.c_str(), count);
    }
    KOVAInfo::Printf("==================================================");
}
