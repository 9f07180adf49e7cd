#pragma once

#include <cstdint>

#include <kova/core/export.h>
#include <kova/text/KOVAString.h>

/// Base of the bodies of public handles. Made with `new` and handed to a handle, which takes the first
/// reference and from then on decides when it is deleted.
class KOVA_API KOVIObjectImpl {
public:
    /// A body with a tag takes the next serial number, and both make its debug name: "KOVIValue[7]".
    explicit KOVIObjectImpl(char const* tag = nullptr);
    KOVIObjectImpl(KOVIObjectImpl const&) = delete;
    KOVIObjectImpl& operator=(KOVIObjectImpl const&) = delete;
    virtual ~KOVIObjectImpl();

    /// Both return the new count, and nothing else happens: bodies are deleted by handles.
    int Ref() noexcept { return ++count_; }
    int Unref() noexcept { return --count_; }

    /// Unchecked. Hazard: a pointer to a derived body has to become a KOVIObjectImpl* before it becomes a void*.
    static KOVIObjectImpl* Cast(void* body) noexcept { return static_cast<KOVIObjectImpl*>(body); }

    /// The debug name; null for a body without tag. The text lives until another name is set.
    char const* GetName() const { return name_; }
    void SetName(KOVAString& name) { name_ = name; }

    /// The serial number that was given last; 0 at first.
    static int _objectCounter;

private:
    std::int32_t count_ = 0;
    KOVAString name_;
};
