#pragma once

#include <cstdint>

#include <kova/core/export.h>

/// The outcome of an operation: one 32-bit code, passed by value.
///
///     KOVIResult result = reader.Read(path);
///     result &= writer.Write(out);              // keep the worst outcome
///     if (result.IsFailure())
///         KOVAError::Printf("%s", result.GetMessage());
///     return static_cast<int>(result.GetReturnCode());
///
/// Bits 0-15 hold the number, 16-23 the domain, 24-27 the criticity (0 success, 1 failure,
/// 2 aborted, 3 undetermined). A default result is "Undetermined", never a success.
/// Nothing here fails or throws; unknown codes classify by their bits.
class KOVA_API KOVIResult {
public:
    /// The constant 0x01000001, "Failure".
    static const KOVIResult E_FAIL_RESULT;

    // Implicit on purpose: operations return raw codes.
    constexpr KOVIResult(long code = kUndetermined) noexcept : code_(static_cast<std::int32_t>(code)) {}
    constexpr KOVIResult(KOVIResult const&) noexcept = default;
    constexpr KOVIResult& operator=(KOVIResult const&) noexcept = default;
    constexpr KOVIResult& operator=(long code) noexcept {
        code_ = static_cast<std::int32_t>(code);
        return *this;
    }

    /// The raw code; comparisons are exact, without masking. (The forms for int make a comparison
    /// with a literal unambiguous.)
    constexpr operator long() const noexcept { return code_; }
    constexpr bool operator==(long code) const noexcept { return code_ == code; }
    constexpr bool operator!=(long code) const noexcept { return code_ != code; }
    constexpr bool operator==(int code) const noexcept { return code_ == code; }
    constexpr bool operator!=(int code) const noexcept { return code_ != code; }

    /// Criticity is zero ("Partial Success" and "No Entity to Translate" included).
    constexpr int IsSuccess() const noexcept { return GetCriticity() == 0; }
    /// A success other than "Partial Success".
    constexpr int IsCompleteSuccess() const noexcept { return IsSuccess() && code_ != kPartialSuccess; }
    /// Exactly "Partial Success".
    constexpr int IsPartialSuccess() const noexcept { return code_ == kPartialSuccess; }
    /// Criticity is not zero ("Aborted" and "Undetermined" included).
    constexpr int IsFailure() const noexcept { return !IsSuccess(); }
    /// A failure other than "Undetermined".
    constexpr int IsDeterminedFailure() const noexcept { return IsFailure() && code_ != kUndetermined; }
    /// Exactly "Undetermined".
    constexpr int IsUndetermined() const noexcept { return code_ == kUndetermined; }

    constexpr unsigned int GetCriticity() const noexcept { return (bits() >> 24) & 0xFU; }
    constexpr unsigned int GetDomain() const noexcept { return (bits() >> 16) & 0xFFU; }
    constexpr unsigned int GetNumber() const noexcept { return bits() & 0xFFFFU; }

    /// A static English text; "Unknown Result" for a code outside the library's own.
    char const* GetMessage() const noexcept;

    /// Exit status for a command-line tool: 0 for any success, 1 for a failure of a foreign domain,
    /// otherwise the number.
    unsigned int GetReturnCode() const noexcept;
    /// 1 for true, 0 for false.
    static int GetReturnCode(bool flag) noexcept { return flag ? 1 : 0; }
    /// "OK" or "KO".
    static char const* GetOKKOString(bool ok) noexcept { return ok ? "OK" : "KO"; }

    /// Keeps the worst outcome; the first determined failure wins. Returns a copy of the new value.
    KOVIResult operator&=(KOVIResult right) noexcept;
    /// A mixture of success and failure becomes "Partial Success". Callers depend on the asymmetry
    /// that "Undetermined" joined with "Partial Success" stays "Undetermined".
    KOVIResult operator|=(KOVIResult right) noexcept;

private:
    static constexpr std::int32_t kPartialSuccess = 0x00000001;
    static constexpr std::int32_t kUndetermined = 0x03000006;

    constexpr std::uint32_t bits() const noexcept { return static_cast<std::uint32_t>(code_); }

    std::int32_t code_;
};
