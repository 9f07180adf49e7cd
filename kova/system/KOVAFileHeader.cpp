#include <kova/system/KOVAFileHeader.h>

#include <kova/core/results.h>
#include <kova/stream/KOVAStreamFormatter.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVAFileHeader) == 12);

using kova::detail::kFailure;
using kova::detail::kInvalidArgument;
using kova::detail::kSuccess;

namespace {

/// So that a damaged number does not take all memory.
constexpr int kMostModels = 65536;

} // namespace

KOVAFileHeader::KOVAFileHeader() {
    models_.resize(1);
}

KOVAFileHeader::KOVAFileHeader(KOVAFileHeader const& other) : current_(other.current_), models_(other.models_.copy()) {}

KOVAFileHeader& KOVAFileHeader::operator=(KOVAFileHeader const& other) {
    current_ = other.current_;
    models_ = other.models_.copy();
    return *this;
}

KOVAFileHeader::~KOVAFileHeader() = default;

KOVIResult KOVAFileHeader::ResizeModels(int n) {
    if (n < 0)
        return kInvalidArgument;
    models_.resize(n);
    return models_.size() == n ? kSuccess : kFailure;
}

/// A table cannot be read through a constant.
KOVATable& KOVAFileHeader::model() const {
    return const_cast<KOVATable&>(models_[current_]);
}

int KOVAFileHeader::GetModelsCount() const {
    return models_.size();
}

KOVIResult KOVAFileHeader::SelectModel(int i) {
    if (i < 0 || i >= kMostModels)
        return kInvalidArgument;
    KOVIResult const result = i < models_.size() ? kSuccess : ResizeModels(i + 1);
    if (result.IsSuccess())
        current_ = i;
    return result;
}

KOVIResult KOVAFileHeader::Get(int index, KOVAString& name, KOVAValue& value) const {
    KOVAValue key;
    KOVIResult result = model().Get(index, &key, &value, nullptr);
    if (result.IsFailure())
        return result;
    KOVAString text;
    result &= key.GetValue(text);
    name = text;
    return result;
}

KOVIResult KOVAFileHeader::Get(KOVAString const& name, KOVAString& text) const {
    KOVAValue value;
    KOVIResult result = Get(name, value);
    if (result.IsSuccess())
        result &= value.GetValue(text);
    return result;
}

KOVIResult KOVAFileHeader::Get(KOVAString const& name, KOVAValue& value) const {
    KOVAValue key(name);
    return model().Get(&key, &value, nullptr);
}

KOVIResult KOVAFileHeader::Set(KOVAString const& name, KOVAString const& text) {
    return Set(name, KOVAValue(text));
}

KOVIResult KOVAFileHeader::Set(KOVAString const& name, KOVAValue const& value) {
    KOVAValue const key(name);
    return model().Set(&key, &value, nullptr);
}

KOVIResult KOVAFileHeader::AddSection(KOVAString const& name) {
    KOVAValue const none;
    KOVAValue const value(name);
    return model().Add(&none, &value, nullptr);
}

int KOVAFileHeader::GetCount() const {
    return model().GetRowsCount();
}

KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, KOVAFileHeader const& header) {
    for (int i = 0, n = header.GetCount(); i < n; ++i) {
        KOVAString name;
        KOVAValue value;
        KOVIResult const result = header.Get(i, name, value);
        if (result.IsSuccess())
            out << out.format("%-24s : ", name.length() > 0 ? static_cast<char const*>(name) : "") << value
                << out.newline;
        else if (name.length() == 0 && value.IsValid())
            out << value << out.newline;
    }
    return out;
}
