#pragma once

#include <kova/core/export.h>

/// Base of the handles that applications hold. A handle has a tag, the name of its class, and a body, which
/// carries the data and counts the handles that hold it. Handles are cheap to pass by value: a copy takes a
/// reference of its own on the same body, and the handle that drops the last one deletes it. They are for one
/// thread at a time. Hazard: so are the constants of names, which the whole process shares.
class KOVA_API KOVIObject {
public:
    /// It has a tag and a body.
    virtual bool IsValid() const;

    /// Takes a reference on the body, null for none, and drops the one that was held. Nothing changes when it is
    /// the same body. Hazard: the pointer is not checked. It is a KOVIObjectImpl*, made with `new`, of the kind
    /// that belongs to the handle's class.
    void SetData(void* body);
    /// The body, a KOVIObjectImpl*, which lives as long as a handle holds it. Hazard: null for a handle without
    /// one, and KOVIObjectImpl::Cast does not ask.
    void* GetData() const { return body_ ? body_ : constantBody(); }

protected:
    constexpr explicit KOVIObject(char const* const tag) noexcept : tag_(tag) {}
    KOVIObject(KOVIObject const& other);
    KOVIObject& operator=(KOVIObject const& other);
    virtual ~KOVIObject();

    /// The body's, which return the new count; 0 without a body. Hazard: Unref deletes nothing.
    int Ref();
    int Unref();

private:
    void* constantBody() const;

    char const* tag_;
    mutable void* body_ = nullptr; ///< of a constant, null until it is asked for
};
