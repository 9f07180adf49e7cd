#include <kova/core/KOVIResult.h>

#include <kova/core/results.h>

static_assert(sizeof(KOVIResult) == 4);

const KOVIResult KOVIResult::E_FAIL_RESULT(0x01000001);

char const* KOVIResult::GetMessage() const noexcept {
    switch (code_) {
    case 0x00000000: return "Success";
    case 0x00000001: return "Partial Success";
    case 0x00000002: return "No Entity to Translate";
    case 0x01000001: return "Failure";
    case 0x01000002: return "Error Encountered";
    case 0x01000004: return "Not supported";
    case 0x01000007: return "Unexpected Error";
    case 0x01000009: return "Invalid Component";
    case 0x0100000A: return "Invalid Object";
    case 0x0100000B: return "Invalid Argument";
    case 0x0100000D: return "File Not Found";
    case 0x0100000E: return "File Open Error";
    case 0x0100000F: return "File Save Error";
    case 0x01000010: return "File is encrypted";
    case 0x01000011: return "Model size exceeds valid box";
    case 0x01000012: return "Model size is smaller than the valid box";
    case 0x01000013: return "File write unit is invalid";
    case 0x01000014: return "File version is not supported";
    case 0x01000015: return "Invalid file";
    case 0x02000003: return "Aborted";
    case 0x03000006: return "Undetermined";
    default: return "Unknown Result";
    }
}

unsigned int KOVIResult::GetReturnCode() const noexcept {
    if (IsSuccess())
        return 0;
    return GetDomain() != 0 ? 1 : GetNumber();
}

KOVIResult KOVIResult::operator&=(KOVIResult right) noexcept {
    if (IsCompleteSuccess()) {
        if (right.IsFailure() || right.IsPartialSuccess() || right == long{kova::detail::kNoEntity})
            *this = right;
    } else if (IsPartialSuccess()) {
        if (right.IsFailure())
            *this = right;
    } else if (IsUndetermined()) {
        if (right.IsDeterminedFailure())
            *this = right;
    }
    return *this;
}

KOVIResult KOVIResult::operator|=(KOVIResult right) noexcept {
    if (IsCompleteSuccess()) {
        if (right.IsFailure() || right.IsPartialSuccess())
            code_ = kPartialSuccess;
    } else if (IsDeterminedFailure()) {
        if (right.IsSuccess())
            code_ = kPartialSuccess;
    } else if (IsUndetermined()) {
        if (right.IsCompleteSuccess())
            code_ = kPartialSuccess;
        else if (right.IsDeterminedFailure())
            *this = right;
    }
    return *this;
}
