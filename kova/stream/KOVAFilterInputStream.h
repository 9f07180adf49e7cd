#pragma once

#include <kova/core/export.h>
#include <kova/stream/KOVAInputStream.h>

/// Forwards everything to the next stream, which it does not own: the base of streams that change
/// something on the way. Without a next stream there is nothing to read.
class KOVA_API KOVAFilterInputStream : public KOVAInputStream {
public:
    explicit KOVAFilterInputStream(KOVAInputStream* next) noexcept : KOVAInputStream(next) {}
    ~KOVAFilterInputStream() override;

    /// The duplicate owns the next stream's duplicate that it reads from. Null when the next stream has
    /// none.
    KOVAInputStream* duplicate() override;
    int readChar() override;
    int read(char* const buffer, int count) override;
    long skip(long count) override;
    long available() const override;
    bool add(Gk_String const& text) override;
    long getCurrentOffset() const override;
    void setOffset(long offset) override;

protected:
    KOVAFilterInputStream(KOVAFilterInputStream const&) = default;
    KOVAFilterInputStream& operator=(KOVAFilterInputStream const&) = default;
};
