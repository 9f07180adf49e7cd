#pragma once

#include <kova/containers/KOVADynamicArray.h>
#include <kova/core/export.h>

/// A stack of untyped pointers, which it never owns. Copies are independent.
class KOVA_API KOVAStack {
public:
    KOVAStack();
    KOVAStack(KOVAStack const& other);
    KOVAStack& operator=(KOVAStack const& other);
    virtual ~KOVAStack();

    virtual int Size() const;
    /// Returns the new number of entries.
    virtual int Push(void* v);
    /// Removes and returns the top; null when empty.
    virtual void* Pop();
    /// The top; null when empty.
    virtual void* GetTop() const;
    virtual bool IsEmpty() const;
    /// Entry i counted from the bottom, unchecked.
    virtual void* ElementAt(int i) const;

private:
    KOVADynamicArray<void*> entries_;
};
