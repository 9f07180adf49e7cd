#include <kova/public/KOVIOptions.h>

#include <initializer_list>

#include <kova/core/results.h>
#include <kova/options/KOVAOption.h>
#include <kova/options/KOVAOptionName.h>
#include <kova/public/KOVIFileImpl.h>
#include <kova/public/KOVINameImpl.h>
#include <kova/public/KOVIOptionsImpl.h>
#include <kova/public/KOVIValueImpl.h>
#include <kova/public/body.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVIOptions) == 12);
static_assert(sizeof(void*) != 4 || sizeof(KOVIOptionsImpl) == 36);

using kova::detail::bodyOf;
using kova::detail::kErrorEncountered;
using kova::detail::kFileOpenError;
using kova::detail::kInvalidArgument;
using kova::detail::kInvalidObject;
using kova::detail::kSuccess;
using kova::detail::newBody;

namespace {

constexpr char kTag[] = "KOVIOptions";

/// Success when the operation may go on. (A derived handle may call itself valid and have no body.)
KOVIResult checked(KOVIObject const& options, std::initializer_list<KOVIObject const*> arguments = {}) {
    if (!options.IsValid())
        return kInvalidObject;
    bool bodies = options.GetData() != nullptr;
    for (KOVIObject const* const argument : arguments) {
        if (!argument->IsValid())
            return kInvalidArgument;
        bodies = bodies && argument->GetData();
    }
    return bodies ? kSuccess : kErrorEncountered;
}

} // namespace

// --- the handle

KOVIOptions::KOVIOptions() : KOVIObject(kTag) {
    SetData(newBody<KOVIOptionsImpl>(kTag));
}

KOVIOptions::~KOVIOptions() = default;

KOVIResult KOVIOptions::Load(KOVIFile const& file) {
    KOVIResult const result = checked(*this, {&file});
    return result.IsFailure() ? result : bodyOf<KOVIOptionsImpl>(*this)->Load(*bodyOf<KOVIFileImpl>(file));
}

KOVIResult KOVIOptions::Add(KOVIOptionName const& name, KOVIValue const& value) {
    KOVIResult const result = checked(*this, {&name, &value});
    if (result.IsFailure())
        return result;
    KOVAString text;
    KOVAValue content;
    bodyOf<KOVINameImpl>(name)->GetName(text);
    bodyOf<KOVIValueImpl>(value)->GetValue(content);
    return bodyOf<KOVIOptionsImpl>(*this)->Add(text, content);
}

int KOVIOptions::GetOptionsCount() const {
    if (!IsValid())
        return static_cast<int>(long{kInvalidObject});
    return GetData() ? bodyOf<KOVIOptionsImpl>(*this)->GetOptionsCount() : 0;
}

KOVIResult KOVIOptions::GetOptionAt(int index, KOVIOptionName& name, KOVIValue& value) const {
    KOVAString text;
    KOVAValue content;
    KOVIResult result = checked(*this);
    if (result.IsSuccess())
        result = bodyOf<KOVIOptionsImpl>(*this)->GetOptionAt(index, text, content);
    if (result.IsFailure())
        return result;
    name.SetData(newBody<KOVINameImpl>("KOVIOptionName", text));
    value.SetData(newBody<KOVIValueImpl>("KOVIValue", content));
    return kSuccess;
}

// --- the body

KOVIOptionsImpl::~KOVIOptionsImpl() = default;

KOVIResult KOVIOptionsImpl::Load(KOVIFileImpl& file) {
    next_ = 0;
    std::FILE* stream = nullptr;
    if (file.GetFile(stream).IsSuccess())
        return options_.ReadFromFile(stream);
    KOVAString path;
    return file.GetPath(path).IsSuccess() ? options_.ReadFromFile(path) : kFileOpenError;
}

KOVIResult KOVIOptionsImpl::Add(KOVAString const& name, KOVAValue const& value) {
    next_ = 0;
    return options_.AddOption(KOVAOption(KOVAOptionName(name), value));
}

KOVIResult KOVIOptionsImpl::GetOptionAt(int index, KOVAString& name, KOVAValue& value) {
    if (index < 0 || index >= options_.Size())
        return kInvalidArgument;
    if (index < next_ || next_ == 0) {
        options_.InitEnumeration();
        next_ = 0;
    }
    KOVAOption* option = nullptr;
    while (next_ <= index && options_.GetNext(option).IsSuccess())
        ++next_;
    if (!option)
        return kInvalidArgument;
    KOVIResult const result = option->GetName(name);
    return result.IsFailure() ? result : option->GetValue(value);
}

KOVIResult KOVIOptionsImpl::GetOptions(KOVAOptions const*& options) const {
    options = &options_;
    return kSuccess;
}
