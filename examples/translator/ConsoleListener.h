#pragma once

#include <kova/diagnostics/KOVAEventListener.h>
#include <kova/stream/KOVAFileOutputStream.h>

namespace translator {

/// Shows messages on standard output, warnings and errors on standard error, for as long as it lives.
class ConsoleListener : public KOVAEventListener {
public:
    ConsoleListener();
    ConsoleListener(ConsoleListener const&) = delete;
    ConsoleListener& operator=(ConsoleListener const&) = delete;
    ~ConsoleListener() override;

    void HandleEvent(KOVAEvent& event) override;

private:
    KOVAFileOutputStream errors_;
};

} // namespace translator
