#pragma once

#include <kova/core/KOVAReferenceCount.h>
#include <kova/core/export.h>

/// Base of the typed handles to counted objects: taking an object raises its count, letting go lowers
/// it, and the handle that brings it to zero deletes the object.
///
///     class ShapeHandle : public KOVAReferenceHandle {
///     public:
///         explicit ShapeHandle(Shape* shape) : KOVAReferenceHandle(shape) {}
///         Shape* operator->() const { return static_cast<Shape*>(GetInstance()); }
///     };
class KOVA_API KOVAReferenceHandle {
protected:
    virtual ~KOVAReferenceHandle();

public:
    /// Does nothing when both hold the same object.
    KOVAReferenceHandle& operator=(KOVAReferenceHandle const& other);

    /// Identity and address order of the objects.
    bool operator==(KOVAReferenceHandle const& other) const noexcept { return instance_ == other.instance_; }
    bool operator<(KOVAReferenceHandle const& other) const noexcept;

    /// It holds an object.
    virtual bool IsValid() const;
    /// It is the only holder of an object.
    bool IsLastCall() const noexcept { return instance_ && instance_->IsLastCall(); }

protected:
    explicit KOVAReferenceHandle(KOVAReferenceCount* p);
    /// Takes over a count that has been raised already.
    struct Raised {
        KOVAReferenceCount* object;
    };
    explicit constexpr KOVAReferenceHandle(Raised raised) noexcept : instance_(raised.object) {}
    KOVAReferenceHandle(KOVAReferenceHandle const& other);

    KOVAReferenceCount* GetInstance() const noexcept { return instance_; }

private:
    KOVAReferenceCount* instance_;
};
