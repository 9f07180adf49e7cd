#include "ConsoleListener.h"

#include <kova/diagnostics/KOVAEvent.h>
#include <kova/diagnostics/KOVAEventBus.h>

namespace translator {

ConsoleListener::ConsoleListener() : errors_(new KOVAFileDescriptor(2, KOVAFileDescriptor::Write)) {
    KOVAEventBus::GetEventBus().AddListener(this);
}

ConsoleListener::~ConsoleListener() {
    KOVAEventBus::GetEventBus().RemoveListener(this);
}

void ConsoleListener::HandleEvent(KOVAEvent& event) {
    if (event.GetLevel() >= KOVA_LEVEL_WARNING)
        event.GetFormattedDescription(&errors_);
    else if (event.GetLevel() >= KOVA_LEVEL_INFO)
        event.GetFormattedDescription(&KOVAFileOutputStream::console);
}

} // namespace translator
