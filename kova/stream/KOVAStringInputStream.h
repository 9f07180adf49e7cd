#pragma once

#include <cstdint>

#include <kova/core/export.h>
#include <kova/stream/KOVAInputStream.h>
#include <kova/text/Gk_String.h>

/// Reads a text from memory. The text ends with a terminator, which is not read.
///
/// Offsets are not supported. Hazard: skip beyond the end does not return, because read gives 0 there.
class KOVA_API KOVAStringInputStream : public KOVAInputStream {
public:
    /// Keeps a copy of its own. Honours a request to abort, and calls the assertion hook for a text that
    /// is empty or has no terminator.
    explicit KOVAStringInputStream(Gk_String const& text);
    KOVAStringInputStream(KOVAStringInputStream const& other);
    KOVAStringInputStream& operator=(KOVAStringInputStream const& other);
    ~KOVAStringInputStream() override;

    /// Not supported: null, after the assertion hook.
    KOVAInputStream* duplicate() override;
    /// Returns the number of characters read, 0 at the end.
    int read(char* const buffer, int count) override;
    /// Callers depend on a truth value: 1 while anything is left, else 0.
    long available() const override;
    /// Moves back by the text's len(), at most to the start; true.
    bool add(Gk_String const& text) override;

    /// What is left, with its terminator.
    Gk_String contents() const;

private:
    Gk_String text_;
    std::int32_t position_ = 0;
};
