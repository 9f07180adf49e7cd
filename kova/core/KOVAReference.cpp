#include <kova/core/KOVAReferenceCount.h>
#include <kova/core/KOVAReferenceHandle.h>

#include <functional>

static_assert(sizeof(void*) != 4 || sizeof(KOVAReferenceCount) == 8);
static_assert(sizeof(void*) != 4 || sizeof(KOVAReferenceHandle) == 8);

namespace {

KOVAReferenceCount* raised(KOVAReferenceCount* object) {
    if (object)
        object->RaiseReference();
    return object;
}

void lower(KOVAReferenceCount* object) {
    if (object && object->LowerReference() == 0)
        delete object;
}

} // namespace

KOVAReferenceCount::~KOVAReferenceCount() = default;

unsigned int KOVAReferenceCount::RaiseReference() {
    return ++count_;
}

unsigned int KOVAReferenceCount::LowerReference() {
    if (count_ > 0)
        --count_;
    return count_;
}

char const* KOVAReferenceCount::GetName() {
    return nullptr;
}

KOVAReferenceHandle::KOVAReferenceHandle(KOVAReferenceCount* p) : instance_(raised(p)) {}

KOVAReferenceHandle::KOVAReferenceHandle(KOVAReferenceHandle const& other) : instance_(raised(other.instance_)) {}

KOVAReferenceHandle::~KOVAReferenceHandle() {
    KOVAReferenceCount* const released = instance_;
    instance_ = nullptr;
    lower(released);
}

KOVAReferenceHandle& KOVAReferenceHandle::operator=(KOVAReferenceHandle const& other) {
    if (instance_ != other.instance_) {
        // The new object first: letting go of the old one may destroy `other`.
        KOVAReferenceCount* const released = instance_;
        instance_ = raised(other.instance_);
        lower(released);
    }
    return *this;
}

bool KOVAReferenceHandle::operator<(KOVAReferenceHandle const& other) const noexcept {
    return std::less<>()(instance_, other.instance_);
}

bool KOVAReferenceHandle::IsValid() const {
    return instance_ != nullptr;
}
