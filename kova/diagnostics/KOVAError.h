#pragma once

#include <cstdint>

#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/text/KOVAString.h>

class KOVAOutputStream;

/// A coded error, and the static calls by which errors are reported.
///
///     KOVAError::Printf("%s: the header is damaged", name);
///
///     KOVAError error(0x01000015);
///     error.SetDescription("the header is damaged");
///     return KOVAErrorEvent::Fire(error, __FILE__, __LINE__);
class KOVA_API KOVAError {
public:
    /// Type 0: no error.
    constexpr KOVAError() noexcept : KOVAError(0) {}
    /// The result code that the error stands for.
    explicit constexpr KOVAError(long type) noexcept : type_(static_cast<std::int32_t>(type)), sourceLine_(0) {}
    KOVAError(KOVAError const&) = default;
    KOVAError& operator=(KOVAError const&) = default;
    virtual ~KOVAError();

    /// Both copy the text, and always succeed.
    virtual KOVIResult SetDescription(KOVAString const& description);
    virtual KOVIResult GetDescription(KOVAString& description) const;
    /// Writes "Error ", the type and, if there is one, " : " and the description as one line; nothing for
    /// type 0.
    virtual void GetFormattedDescription(KOVAOutputStream* out) const;

    void SetSourceFileInfo(char const* file, int line);
    KOVAString const& GetSourceFile() const noexcept { return sourceFile_; }
    int GetSourceLine() const noexcept { return sourceLine_; }
    long GetErrorType() const noexcept { return type_; }

    /// Formats and fires an error event, never indented. A null format does nothing. The text is cut at
    /// 1023 characters, and "%%" that it still contains becomes "%".
    static void Printf(char const* format, ...) KOVA_PRINTF(1, 2);

    /// What the error tracker has recorded: 0 and null when none was initialised.
    static int GetErrorCount();
    static KOVAError* GetLastError();

    /// "Failure", without description or source.
    static const KOVAError FAIL_ERROR;

private:
    std::int32_t type_;
    KOVAString description_;
    KOVAString sourceFile_;
    std::int32_t sourceLine_;
};
