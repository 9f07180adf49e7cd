#pragma once

#include <cstdint>

#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/diagnostics/KOVAEventLevel.h>
#include <kova/diagnostics/KOVAObject.h>

class KOVAOutputStream;
class KOVAString;

/// Something to report: built on the producer's stack, fired on the bus, destroyed on return.
///
///     class RowsReadEvent : public KOVAEvent {
///     public:
///         explicit RowsReadEvent(int rows) : KOVAEvent("RowsReadEvent", KOVA_LEVEL_INFO), rows_(rows) {}
///         void GetFormattedDescription(KOVAOutputStream* out) override { ... }
///     };
///     RowsReadEvent event(12);
///     KOVAEventBus::Fire(event);
///
/// The type name is "KOVAEvent" for every event; listeners recognise a concrete kind with IsA.
class KOVA_API KOVAEvent : public KOVAObject {
public:
    /// Keeps a copy of the name (by convention the class name); none for a null or empty one.
    KOVAEvent(char const* eventName, KOVAEventLevel level);
    KOVAEvent(char const* eventName, int level) : KOVAEvent(eventName, static_cast<KOVAEventLevel>(level)) {}
    ~KOVAEvent() override;

    /// Writes the text for people to the stream; nothing here.
    virtual void GetFormattedDescription(KOVAOutputStream* out);
    /// The bus stamps the event with time and clock before delivery; not here.
    virtual bool IsTimed();

    /// The event name, owned by the event and not to be written to; may be null.
    char* GetEventName() { return eventName_; }
    /// The name is this event's, to the letter; false when either is null.
    bool IsA(char const* name) const;
    KOVAEventLevel GetLevel() const noexcept { return level_; }

    /// The level that a keyword stands for, the default for anything else: lower case, blanks around it,
    /// and the empty text included.
    static KOVAEventLevel GetLevel(KOVAString const& keyword, KOVAEventLevel defaultLevel);
    static KOVAEventLevel GetLevel(KOVAString const& keyword, int defaultLevel) {
        return GetLevel(keyword, static_cast<KOVAEventLevel>(defaultLevel));
    }

    /// Seconds since 1970-01-01 UTC, and processor time in milliseconds, at delivery. They copy what is
    /// stored in any case and return "Failure" unless the event was stamped.
    KOVIResult GetTime(long& out) const;
    KOVIResult GetClock(long& out) const;
    /// Each stamps the event; always a success.
    KOVIResult SetTime(long const& value);
    KOVIResult SetClock(long const& value);

private:
    char* eventName_;
    KOVAEventLevel level_;
    std::int32_t stamped_;
    std::int32_t time_;
    std::int32_t clock_;
};
