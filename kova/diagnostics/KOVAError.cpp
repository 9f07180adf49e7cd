#include <kova/diagnostics/KOVAError.h>

#include <string>

#include <kova/diagnostics/KOVAErrorTracker.h>
#include <kova/stream/KOVAOutputStream.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAError) == 36);

KOVAError::~KOVAError() = default;

KOVIResult KOVAError::SetDescription(KOVAString const& description) {
    description_ = description;
    return 0;
}

KOVIResult KOVAError::GetDescription(KOVAString& description) const {
    description = description_;
    return 0;
}

void KOVAError::GetFormattedDescription(KOVAOutputStream* out) const {
    if (type_ == 0 || !out)
        return;
    std::string line = "Error " + std::to_string(type_);
    if (description_.length() > 0)
        line.append(" : ").append(static_cast<char const*>(description_));
    line += '\n';
    out->write(line.data(), static_cast<int>(line.size()));
    out->flush();
}

void KOVAError::SetSourceFileInfo(char const* file, int line) {
    sourceFile_ = KOVAString(file);
    sourceLine_ = line;
}

int KOVAError::GetErrorCount() {
    KOVAErrorTracker* const tracker = KOVAErrorTracker::GetInstance();
    return tracker ? tracker->GetErrorCount() : 0;
}

KOVAError* KOVAError::GetLastError() {
    KOVAErrorTracker* const tracker = KOVAErrorTracker::GetInstance();
    return tracker ? tracker->GetLastError() : nullptr;
}
