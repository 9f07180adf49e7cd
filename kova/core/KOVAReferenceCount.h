#pragma once

#include <cstdint>

#include <kova/core/export.h>

/// Base of objects that count their holders. Handles derived from KOVAReferenceHandle raise and lower
/// the count and delete the object at zero. The count is a plain integer: one thread at a time.
class KOVA_API KOVAReferenceCount {
public:
    explicit constexpr KOVAReferenceCount(unsigned int initial) noexcept : count_(initial) {}
    /// A copy starts without holders.
    KOVAReferenceCount(KOVAReferenceCount const&) noexcept {}
    virtual ~KOVAReferenceCount();

    /// Both return the count after the step; lowering stops at 0.
    virtual unsigned int RaiseReference();
    virtual unsigned int LowerReference();
    /// The type's name; null here.
    virtual char const* GetName();

    /// There is exactly one holder.
    bool IsLastCall() const noexcept { return count_ == 1; }
    unsigned int GetReferenceCount() const noexcept { return count_; }

private:
    /// Assigned contents come without their holders.
    KOVAReferenceCount& operator=(KOVAReferenceCount const&) noexcept {
        count_ = 0;
        return *this;
    }

    std::uint32_t count_ = 0;
};
