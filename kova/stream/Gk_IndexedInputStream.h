#pragma once

#include <cstdint>

#include <kova/core/export.h>
#include <kova/stream/KOVAFilterInputStream.h>

/// Counts the line feeds that pass through it, so that a scanner can name a line. Skipping and setting
/// the offset are not counted.
class KOVA_API Gk_IndexedInputStream : public KOVAFilterInputStream {
public:
    explicit Gk_IndexedInputStream(KOVAInputStream* next) noexcept : KOVAFilterInputStream(next) {}
    ~Gk_IndexedInputStream() override;

    KOVAInputStream* duplicate() override;
    int readChar() override;
    int read(char* const buffer, int count) override;
    /// Takes the text's line feeds off the count again; true.
    bool add(Gk_String const& text) override;

    int lineCount() const noexcept { return lineCount_; }

protected:
    Gk_IndexedInputStream(Gk_IndexedInputStream const&) = default;
    Gk_IndexedInputStream& operator=(Gk_IndexedInputStream const&) = default;

private:
    std::int32_t lineCount_ = 0;
};
