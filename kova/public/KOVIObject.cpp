#include <kova/public/KOVIObject.h>

#include <kova/public/KOVIObjectImpl.h>

static_assert(sizeof(void*) != 4 || sizeof(KOVIObject) == 12);
static_assert(sizeof(void*) != 4 || sizeof(KOVIObjectImpl) == 20);

KOVIObject::KOVIObject(KOVIObject const& other) : tag_(other.tag_), body_(other.GetData()) {
    Ref();
}

KOVIObject& KOVIObject::operator=(KOVIObject const& other) {
    tag_ = other.tag_;
    SetData(other.GetData());
    return *this;
}

KOVIObject::~KOVIObject() {
    SetData(nullptr);
    tag_ = nullptr;
}

bool KOVIObject::IsValid() const {
    return tag_ && GetData();
}

void KOVIObject::SetData(void* body) {
    if (body == body_)
        return;
    // The new body first: the old one may be what keeps it.
    KOVIObjectImpl* const released = KOVIObjectImpl::Cast(body_);
    body_ = body;
    if (body)
        Ref();
    if (released && released->Unref() < 1)
        delete released;
}

int KOVIObject::Ref() {
    KOVIObjectImpl* const body = KOVIObjectImpl::Cast(GetData());
    return body ? body->Ref() : 0;
}

int KOVIObject::Unref() {
    KOVIObjectImpl* const body = KOVIObjectImpl::Cast(GetData());
    return body ? body->Unref() : 0;
}

int KOVIObjectImpl::_objectCounter = 0;

KOVIObjectImpl::KOVIObjectImpl(char const* tag) {
    if (!tag)
        return;
    // Behind the last number come the negative ones, which are as good.
    _objectCounter = static_cast<int>(static_cast<unsigned int>(_objectCounter) + 1);
    name_ = KOVAString(1024, "%s[%d]", tag, _objectCounter);
}

KOVIObjectImpl::~KOVIObjectImpl() = default;
