#pragma once

#include <cstdio>

#include <kova/core/export.h>
#include <kova/diagnostics/KOVAEventLevel.h>
#include <kova/diagnostics/KOVAEventListener.h>

class KOVAFilePath;
class KOVAOutputStream;

/// The listener that writes events at or above its level to one stream.
///
///     KOVALogger log;
///     log.Initialize("translation.log", KOVA_LEVEL_UNSET);   // the level is the user's
///     ...
///     log.Finalize();
///
/// An event describes itself into a buffer, which is then written whole, with one call of the stream; on a file that is
/// one call of the system. A log that is full or closed loses events and disturbs nobody.
///
/// A level of -1 (KOVA_LEVEL_UNSET) takes the level from the environment variable "KOVALogLevel": one of the
/// keywords of KOVAEvent::GetLevel, 50 for anything else.
class KOVA_API KOVALogger : public KOVAEventListener {
public:
    /// Idle: level 999, no stream, not on the bus.
    KOVALogger() = default;
    KOVALogger(KOVALogger const&) = delete;
    KOVALogger& operator=(KOVALogger const&) = delete;

    /// Writes the event's description, if its level is high enough.
    void HandleEvent(KOVAEvent& event) override;
    ~KOVALogger() override;

    // Each sets stream and level and registers the logger on the bus. A logger that has a stream already stays
    // as it is; the file that the call has opened is closed again.
#if KOVA_OVERLOADS_REVERSED
    virtual void Initialize(KOVAFilePath const& path, KOVAEventLevel level);
    virtual void Initialize(char const* fileName, KOVAEventLevel level);
    virtual void Initialize(std::FILE* file, KOVAEventLevel level);
    virtual void Initialize(KOVAOutputStream* stream, KOVAEventLevel level);
#else
    /// Takes the stream over, unless it is null or the logger has one: then it stays the caller's.
    virtual void Initialize(KOVAOutputStream* stream, KOVAEventLevel level);
    /// The file stays the caller's, who closes it after Finalize. Nothing for null. Hazard: what is logged
    /// passes by the file's own buffer; flush it before.
    virtual void Initialize(std::FILE* file, KOVAEventLevel level);
    /// Both create or truncate the file, and raise "CANNOT_OPEN_FILE" when that fails. Nothing for a null or
    /// empty name.
    virtual void Initialize(char const* fileName, KOVAEventLevel level);
    virtual void Initialize(KOVAFilePath const& path, KOVAEventLevel level);
#endif
    /// Idle again; deletes the stream. The logger may be initialised anew.
    virtual void Finalize();

    // The same for a level as a number.
    void Initialize(KOVAOutputStream* stream, int level) {
        Initialize(stream, static_cast<KOVAEventLevel>(level));
    }
    void Initialize(std::FILE* file, int level) {
        Initialize(file, static_cast<KOVAEventLevel>(level));
    }
    void Initialize(char const* fileName, int level) {
        Initialize(fileName, static_cast<KOVAEventLevel>(level));
    }
    void Initialize(KOVAFilePath const& path, int level) {
        Initialize(path, static_cast<KOVAEventLevel>(level));
    }

    /// Null while idle.
    KOVAOutputStream* GetOutputStream() const noexcept {
        return stream_;
    }

protected:
    /// An event of this level is to be written.
    bool takes(KOVAEventLevel level) const noexcept {
        return level >= level_;
    }
    /// Sets the level and goes on the bus.
    void activate(KOVAEventLevel level);

private:
    /// Offers a stream of our own making.
    void offer(KOVAOutputStream* stream, KOVAEventLevel level);

    KOVAEventLevel level_ = KOVA_LEVEL_NONE;
    KOVAOutputStream* stream_ = nullptr;
};
