#include <kova/public/KOVIName.h>

#include <kova/core/results.h>
#include <kova/public/KOVINameImpl.h>
#include <kova/public/body.h>
#include <kova/text/static_block.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVIName) == 12);
static_assert(sizeof(void*) != 4 || sizeof(KOVINameImpl) == 32);

using kova::detail::kSuccess;

// --- the constants
//
// They, their bodies and texts are made when the library is compiled.

namespace {

enum SerialNumber : int {
    kNone,
#define KOVI_NAME(handle, identifier, text) kNumberOf_##handle##_##identifier,
#include <kova/public/names.def>
    kBehindTheConstants
};
static_assert(kBehindTheConstants <= 1000, "the debug names have room for three digits");

#define KOVI_NAME(handle, identifier, text)                                                                            \
  kova::detail::StaticBlock<sizeof(text)> name_##handle##_##identifier(text);                                          \
  kova::detail::StaticBlock<sizeof(#handle "[999]")> debugName_##handle##_##identifier(                                \
      #handle, kNumberOf_##handle##_##identifier);
#include <kova/public/names.def>

} // namespace

int KOVIObjectImpl::_objectCounter = kBehindTheConstants - 1;

struct kova::detail::ConstantNames {
    struct Table {
#define KOVI_NAME(handle, identifier, text)                                                                            \
  KOVINameImpl body_##handle##_##identifier{debugName_##handle##_##identifier.units,                                   \
                                            name_##handle##_##identifier.units};                                       \
  handle handle##_##identifier{#handle, static_cast<KOVIObjectImpl*>(&body_##handle##_##identifier)};
#include <kova/public/names.def>
    };

    /// Keeps the table from being destroyed.
    union Storage {
        constexpr Storage() noexcept : table() {}
        ~Storage() {} // NOLINT(modernize-use-equals-default): that would be a deleted one
        Table table;
    };

    static Storage storage;
};

kova::detail::ConstantNames::Storage kova::detail::ConstantNames::storage;

#define KOVI_NAME(handle, identifier, text)                                                                            \
  handle const& handle::identifier = kova::detail::ConstantNames::storage.table.handle##_##identifier;
#include <kova/public/names.def>

// --- handles and bodies

KOVINameHandle::KOVINameHandle(char const* const tag, char const* text) : KOVIObject(tag) {
    if (text)
        SetData(kova::detail::newBody<KOVINameImpl>(tag, text));
}

char const* KOVINameHandle::GetText() const {
    return IsValid() ? kova::detail::bodyOf<KOVINameImpl>(*this)->GetText() : nullptr;
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
