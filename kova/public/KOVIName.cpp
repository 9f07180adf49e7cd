#include <kova/public/KOVIName.h>

#include <cstdint>

#include <kova/core/results.h>
#include <kova/public/KOVINameImpl.h>
#include <kova/public/body.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVIName) == 12);
static_assert(sizeof(void*) != 4 || sizeof(KOVINameImpl) == 32);

using kova::detail::kSuccess;

// --- the constants
//
// The handles are made when the library is compiled, without bodies.

namespace {

struct Table {
#define KOVI_NAME(handle, identifier, text) handle handle##_##identifier;
#include <kova/public/names.def>
};

/// Keeps the table from being destroyed.
union Storage {
    constexpr Storage() noexcept : table() {}
    ~Storage() {} // NOLINT(modernize-use-equals-default): that would be a deleted one
    Table table;
};

Storage storage;

/// In the order of the table. (Pointers to texts would have to be relocated whenever the library is loaded.)
constexpr char kTexts[][44] = {
#define KOVI_NAME(handle, identifier, text) text,
#include <kova/public/names.def>
};
static_assert(sizeof(Table) == sizeof(KOVIName) * (sizeof kTexts / sizeof kTexts[0]));

} // namespace

#define KOVI_NAME(handle, identifier, text) handle const& handle::identifier = storage.table.handle##_##identifier;
#include <kova/public/names.def>

/// Makes the body of a constant, which holds a reference on it for ever; null for any other handle.
void* KOVIObject::constantBody() const {
    std::uintptr_t const offset = reinterpret_cast<std::uintptr_t>(this) - reinterpret_cast<std::uintptr_t>(&storage);
    if (offset >= sizeof storage)
        return nullptr;
    KOVINameImpl* const body = new KOVINameImpl(tag_, kTexts[offset / sizeof(KOVIName)]);
    body->Ref();
    body_ = static_cast<KOVIObjectImpl*>(body);
    return body_;
}

// --- handles and bodies

KOVINameHandle::KOVINameHandle(char const* const tag, char const* text) : KOVIObject(tag) {
    if (text)
        SetData(kova::detail::newBody<KOVINameImpl>(tag, text));
}

char const* KOVINameHandle::GetText() const {
    KOVINameImpl const* const body = kova::detail::validBodyOf<KOVINameImpl>(*this);
    return body ? body->GetText() : nullptr;
}

KOVIName::~KOVIName() = default;
KOVIComponentName::~KOVIComponentName() = default;
KOVIReaderWriterName::~KOVIReaderWriterName() = default;
KOVIRepresentationName::~KOVIRepresentationName() = default;
KOVIOptionName::~KOVIOptionName() = default;

KOVINameImpl::~KOVINameImpl() = default;

KOVIResult KOVINameImpl::SetName(KOVAString const& name) {
    name_ = name;
    return kSuccess;
}

KOVIResult KOVINameImpl::GetName(KOVAString& name) const {
    name = name_;
    return kSuccess;
}
