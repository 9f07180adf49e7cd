#pragma once

#include <kova/core/export.h>
#include <kova/stream/KOVAOutputStream.h>

/// Forwards everything to the next stream, which it does not own. Without one, writing does nothing.
class KOVA_API KOVAFilterOutputStream : public KOVAOutputStream {
public:
    explicit KOVAFilterOutputStream(KOVAOutputStream* next) noexcept : KOVAOutputStream(next) {}
    ~KOVAFilterOutputStream() override;

    void writeChar(char c) override;
    void write(char const* const buffer, int count) override;
    void flush() override;
    void close() override;

protected:
    KOVAFilterOutputStream(KOVAFilterOutputStream const&) = default;
    KOVAFilterOutputStream& operator=(KOVAFilterOutputStream const&) = default;
};
