#pragma once

#include <kova/core/export.h>
#include <kova/diagnostics/KOVALogger.h>

namespace kova::detail {
class LogStream;
} // namespace kova::detail

/// The logger of the console: events below level 70 go to standard output, warnings and worse to standard
/// error.
///
///     KOVAConsoleLogger::SetUp(-1);
///
/// is all that an application needs. The user has the last word on the level: when the environment variable
/// "KOVAConsoleTracesLevel" is set, it decides, and a text that is no keyword silences the console.
///
/// Warnings and errors are coloured where standard error is a terminal and the variable NO_COLOR is not set, or empty.
class KOVA_API KOVAConsoleLogger : public KOVALogger {
public:
    KOVAConsoleLogger() = default;
    ~KOVAConsoleLogger() override;

    void HandleEvent(KOVAEvent& event) override;
    void Finalize() override;
    /// Opens the console and goes on the bus; nothing when that was done. A level of -1 is 50.
    virtual void Initialize(KOVAEventLevel level);
    void Initialize(int level) { Initialize(static_cast<KOVAEventLevel>(level)); }

    /// Switches on the console of the process, and task timing if the user asks for it.
    static void SetUp(KOVAEventLevel level);
    static void SetUp(int level) { SetUp(static_cast<KOVAEventLevel>(level)); }

    /// From Initialize to Finalize: everything goes to standard error, for programs whose standard output carries what
    /// they make.
    void FreeStandardOutput();

    /// Standard error is a terminal.
    static bool IsTerminal() noexcept;
    /// It is one that can erase what was written, too: the place for a progress bar.
    static bool CanErase() noexcept;

    static KOVAConsoleLogger _console;

protected:
    int IsInitialized() const noexcept { return out_ || errors_ ? 1 : 0; }

private:
    using KOVALogger::Initialize; // the console has no other stream

    kova::detail::LogStream* out_ = nullptr;    ///< file number 1; the same as errors_ when that is free
    kova::detail::LogStream* errors_ = nullptr; ///< file number 2
};
