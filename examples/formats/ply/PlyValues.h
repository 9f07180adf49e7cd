#pragma once

#include <string_view>

#include <kova/stream/KOVABlockReader.h>

#include "Input.h"
#include "LineReader.h"
#include "PlyHeader.h"
#include "report.h"

namespace toolkit {

/// Ends the reading of a file whose fault has been reported.
struct PlyFailure {
    KOVIResult result;
};

/// A file's header line by line, and then its values one by one: in text those of a line, or in bytes. Every fault
/// is reported and throws PlyFailure.
class PlyValues {
public:
    explicit PlyValues(Input const& input);

    bool isEmpty() { return in_.lookAhead(1).empty(); }
    bool beginsWith(std::string_view text) { return in_.lookAhead(16).substr(0, text.size()) == text; }
    std::string_view headerLine();
    void endHeader(PlyEncoding encoding);

    /// In front of the values of an element, of which so many are behind.
    void beginElement(PlyElement const& element, long long behind);
    /// A number of this type.
    double next(PlyType type);
    /// Behind them.
    void endElement();
    /// Behind the last one.
    void expectEnd();

    /// Of the value that came last.
    Place place() const noexcept { return isText() ? atLine(lines_.number()) : atByte(valueAt_); }
    /// Bytes that are not yet read; negative where that is not known.
    long long left() const noexcept { return size_ < 0 ? -1 : size_ - in_.offset(); }
    bool isText() const noexcept { return encoding_ == PlyEncoding::Ascii; }

private:
    bool nextLine(std::string_view& line);
    double fromText(PlyType type);
    double fromBytes(PlyType type);

    KOVABlockReader in_;
    LineReader lines_;
    long long size_;
    char const* file_;
    PlyEncoding encoding_ = PlyEncoding::Ascii;
    std::string_view rest_; ///< of the line
    long long valueAt_ = 0; ///< where the last value of a binary file began
};

} // namespace toolkit
