#pragma once

#include <cstdarg>
#include <cstdint>
#include <type_traits>

#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/diagnostics/KOVAEvent.h>

class KOVAError;

namespace kova::detail {
class ReportText;
} // namespace kova::detail

/// The part that the message events share: a text of at most 1023 characters, written as one line.
/// Printf-like constructors format it; the protected ones take an argument list that was started.
/// Hazard: where a va_list is a char*, a format held in a char* is taken for one; make it a char const*.
class KOVA_API KOVATextEvent : public KOVAEvent {
public:
    ~KOVATextEvent() override;

    /// The text; null when it is empty.
    char const* GetText() const noexcept { return text_; }

protected:
    KOVATextEvent(char const* eventName, KOVAEventLevel level) : KOVAEvent(eventName, level) {}

    void formatText(char const* format, std::va_list arguments) KOVA_PRINTF(2, 0);
    /// Writes prefix, text and line end with one call of the stream.
    void writeLine(KOVAOutputStream* out, char const* prefix) const;

private:
    friend class kova::detail::ReportText; // lends its text instead of having it copied

    char* text_ = nullptr;
};

/// Level 10: the text.
class KOVA_API KOVADebugEvent : public KOVATextEvent {
public:
    explicit KOVADebugEvent(char const* format, ...) KOVA_PRINTF(2, 3);
    void GetFormattedDescription(KOVAOutputStream* out) override;

protected:
    KOVADebugEvent(std::va_list& arguments, char const* format) KOVA_PRINTF(3, 0);

private:
    friend class kova::detail::ReportText;
    KOVADebugEvent();
};

/// Level 30: the text.
class KOVA_API KOVAVerboseEvent : public KOVATextEvent {
public:
    explicit KOVAVerboseEvent(char const* format, ...) KOVA_PRINTF(2, 3);
    void GetFormattedDescription(KOVAOutputStream* out) override;

protected:
    KOVAVerboseEvent(std::va_list& arguments, char const* format) KOVA_PRINTF(3, 0);

private:
    friend class kova::detail::ReportText;
    KOVAVerboseEvent();
};

/// Level 50: "Message : " and the text, or the text alone.
class KOVA_API KOVAMessageEvent : public KOVATextEvent {
public:
    /// Made of a bool only, so that KOVAMessageEvent("%d", 5) is not taken for the form with a flag.
    class Prefix {
    public:
        template <class Flag, class = std::enable_if_t<std::is_same_v<Flag, bool>>>
        constexpr Prefix(Flag wanted) noexcept : wanted_(wanted) {}
        constexpr bool wanted() const noexcept { return wanted_ != 0; }

    private:
        int wanted_;
    };

    explicit KOVAMessageEvent(char const* format, ...) KOVA_PRINTF(2, 3);
    KOVAMessageEvent(char const* format, Prefix withPrefix, ...) KOVA_PRINTF(2, 4);
    void GetFormattedDescription(KOVAOutputStream* out) override;

    /// Builds an event, sends it and destroys it.
    static void Fire(char const* format, ...) KOVA_PRINTF(1, 2);

protected:
    KOVAMessageEvent(std::va_list& arguments, char const* format) KOVA_PRINTF(3, 0);

private:
    friend class kova::detail::ReportText;
    explicit KOVAMessageEvent(Prefix withPrefix);

    std::int32_t withPrefix_;
};

/// Level 70: "Warning : " and the text.
class KOVA_API KOVAWarningEvent : public KOVATextEvent {
public:
    explicit KOVAWarningEvent(char const* format, ...) KOVA_PRINTF(2, 3);
    void GetFormattedDescription(KOVAOutputStream* out) override;

protected:
    KOVAWarningEvent(std::va_list& arguments, char const* format) KOVA_PRINTF(3, 0);

private:
    friend class kova::detail::ReportText;
    KOVAWarningEvent();
};

/// Level 80: "Error : " and the text, or the description of the error that it carries when there is no
/// text.
class KOVA_API KOVAErrorEvent : public KOVATextEvent {
public:
    /// Carries KOVAError::FAIL_ERROR.
    explicit KOVAErrorEvent(char const* format, ...) KOVA_PRINTF(2, 3);
    /// No text. The error is not owned and must outlive the event.
    explicit KOVAErrorEvent(KOVAError const& error);
    void GetFormattedDescription(KOVAOutputStream* out) override;
    virtual KOVAError const& GetError();

    static void Fire(char const* format, ...) KOVA_PRINTF(1, 2);
    /// Stores the place in the error, sends an event that carries it, and returns its type as a result:
    /// reports a coded error and returns it in one statement.
    static KOVIResult Fire(KOVAError& error, char const* sourceFile, int sourceLine);

protected:
    KOVAErrorEvent(std::va_list& arguments, char const* format) KOVA_PRINTF(3, 0);

private:
    friend class kova::detail::ReportText;
    KOVAErrorEvent();

    KOVAError const* error_;
};

/// Level 90: "Assert : " and the text.
class KOVA_API KOVAAssertEvent : public KOVATextEvent {
public:
    explicit KOVAAssertEvent(char const* format, ...) KOVA_PRINTF(2, 3);
    void GetFormattedDescription(KOVAOutputStream* out) override;

    static void Fire(char const* format, ...) KOVA_PRINTF(1, 2);

protected:
    KOVAAssertEvent(std::va_list& arguments, char const* format) KOVA_PRINTF(3, 0);

private:
    friend class kova::detail::ReportText;
    KOVAAssertEvent();
};
