#pragma once

#include <kova/core/export.h>

class Gk_Marker;

/// A sink of bytes. Derived classes implement write, flush and close. One thread at a time.
class KOVA_API KOVAOutputStream {
public:
    virtual ~KOVAOutputStream();

    virtual void writeChar(char c);
    virtual void write(char const* const buffer, int count) = 0;
    virtual void flush() = 0;
    virtual void close() = 0;

    /// Always false. Callers depend on it: generic container code compares elements with markers.
    bool operator==(Gk_Marker const&) const noexcept { return false; }

protected:
    /// `next` is the stream that a filter writes to, not owned; null for a sink of its own.
    explicit constexpr KOVAOutputStream(KOVAOutputStream* next) noexcept : next_(next) {}
    KOVAOutputStream(KOVAOutputStream const&) = default;
    KOVAOutputStream& operator=(KOVAOutputStream const&) = default;

    KOVAOutputStream* next_;
};
