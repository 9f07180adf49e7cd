#pragma once

#include <kova/core/export.h>

class Gk_String;

/// A source of bytes.
///
///     while ((c = in.readChar()) != -1) ...
///
/// Unsupported operations raise "Gk_IOException". One thread at a time.
class KOVA_API KOVAInputStream {
public:
    virtual ~KOVAInputStream();

    /// A new stream that reads the same source from the same place; the caller owns it.
    virtual KOVAInputStream* duplicate() = 0;
    /// The next byte as 0 .. 255, or -1 at the end.
    virtual int readChar();
    /// Reads at most count bytes; returns how many, 0 or -1 at the end, -1 for an error.
    virtual int read(char* const buffer, int count) = 0;
    /// Reads and discards count bytes; returns how many. Only a read of -1 ends it early: hazard, a
    /// source that returns 0 for ever keeps it going.
    virtual long skip(long count);
    /// Bytes left; not supported here.
    virtual long available() const;
    /// Pushes back text that was read from this stream; not supported here.
    virtual bool add(Gk_String const& text);
    /// The position in the source; not supported here.
    virtual long getCurrentOffset() const;
    virtual void setOffset(long offset);

protected:
    /// `next` is the stream that a filter reads from, not owned; null for a source of its own.
    explicit constexpr KOVAInputStream(KOVAInputStream* next) noexcept : next_(next) {}
    KOVAInputStream(KOVAInputStream const&) = default;
    KOVAInputStream& operator=(KOVAInputStream const&) = default;

    KOVAInputStream* next_;
};
