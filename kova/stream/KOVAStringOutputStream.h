#pragma once

#include <kova/core/export.h>
#include <kova/stream/KOVAOutputStream.h>
#include <kova/text/Gk_String.h>

/// Collects what is written in memory. Copies are independent.
class KOVA_API KOVAStringOutputStream : public KOVAOutputStream {
public:
    KOVAStringOutputStream();
    KOVAStringOutputStream(KOVAStringOutputStream const& other);
    KOVAStringOutputStream& operator=(KOVAStringOutputStream const& other);
    ~KOVAStringOutputStream() override;

    void write(char const* const buffer, int count) override;
    void flush() override {}
    void close() override {}

    /// Everything written, terminated; "" before anything was. Lives until the next write.
    char const* contents() const;

private:
    Gk_String text_; ///< empty, or with a terminator
};
