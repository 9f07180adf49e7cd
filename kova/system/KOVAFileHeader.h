#pragma once

#include <cstdint>
#include <type_traits>

#include <kova/containers/KOVADynamicArray.h>
#include <kova/containers/KOVATable.h>
#include <kova/core/KOVIResult.h>
#include <kova/core/export.h>
#include <kova/options/KOVAValue.h>
#include <kova/text/KOVAString.h>

class KOVAStreamFormatter;

/// What a CAD file says of itself: author, source system, units and the like, as rows of name and value, for
/// each model of the file.
///
///     KOVAFileHeader header;
///     header.Set(KOVAFileHeader::AUTHOR, "N. N.");
///     header.AddSection("Geometry");
///     header.Set("Triangles", 4512);
///     formatter << header;
///
/// All operations but the first two work on the selected model. Copies are deep.
class KOVA_API KOVAFileHeader {
public:
    static const KOVAString MODIFICATION_DATE; ///< "Modification Date"
    static const KOVAString FILE_NAME;         ///< "File Name"
    static const KOVAString AUTHOR;            ///< "Author"
    static const KOVAString ORGANIZATION;      ///< "Organization"
    static const KOVAString SOURCE_SYSTEM;     ///< "Source System"
    static const KOVAString VERSION;           ///< "Version"
    static const KOVAString UNITS;             ///< "Units"
    static const KOVAString COMMENT;           ///< "Comment"
    static const KOVAString TOLERANCE;         ///< "Tolerance"
    static const KOVAString DOCUMENT_TYPE;     ///< "Document Type"

    /// One model without rows, selected.
    KOVAFileHeader();
    KOVAFileHeader(KOVAFileHeader const& other);
    KOVAFileHeader& operator=(KOVAFileHeader const& other);

    virtual int GetModelsCount() const;
    /// Selects model i, counted from 0; where there are fewer, empty ones are added up to it. Invalid Argument,
    /// and nothing changes, below 0 and from 65536 on, which no file has.
    virtual KOVIResult SelectModel(int i);
#if KOVA_OVERLOADS_REVERSED
    virtual KOVIResult Get(KOVAString const& name, KOVAValue& value) const;
    virtual KOVIResult Get(KOVAString const& name, KOVAString& text) const;
    virtual KOVIResult Get(int index, KOVAString& name, KOVAValue& value) const;
    virtual KOVIResult Set(KOVAString const& name, KOVAValue const& value);
    virtual KOVIResult Set(KOVAString const& name, KOVAString const& text);
#else
    /// Row `index`, counted from 0. Callers depend on a section giving a failure, an empty name and, all the
    /// same, its value. Invalid Argument where there is no such row; the outputs are then left alone.
    virtual KOVIResult Get(int index, KOVAString& name, KOVAValue& value) const;
    /// Both find a row by its name. Failure when there is none; the output is then left alone.
    virtual KOVIResult Get(KOVAString const& name, KOVAString& text) const;
    virtual KOVIResult Get(KOVAString const& name, KOVAValue& value) const;
    /// Both replace the row of the name, or append one. Always Success.
    virtual KOVIResult Set(KOVAString const& name, KOVAString const& text);
    virtual KOVIResult Set(KOVAString const& name, KOVAValue const& value);
#endif
    /// Appends a heading: a row without a name. Always Success.
    virtual KOVIResult AddSection(KOVAString const& name);
    /// Number of rows, headings included.
    virtual int GetCount() const;
    ~KOVAFileHeader();

    // Here because a literal suits both forms of Set.
    KOVIResult Set(KOVAString const& name, char const* text) {
        return Set(name, KOVAString(text));
    }
    /// An integer that an int does not hold becomes a double.
    template <class Number, class = std::enable_if_t<std::is_arithmetic_v<Number>>>
    KOVIResult Set(KOVAString const& name, Number value) {
        if constexpr (std::is_same_v<Number, bool>) {
            return Set(name, KOVAValue(value));
        } else {
            int const number = static_cast<int>(value);
            bool const fits = std::is_integral_v<Number> && static_cast<Number>(number) == value &&
                              (number < 0) == (value < Number{0});
            return Set(name, fits ? KOVAValue(number) : KOVAValue(static_cast<double>(value)));
        }
    }

private:
    KOVIResult ResizeModels(int n);
    KOVATable& model() const;

    std::int32_t current_ = 0;
    KOVADynamicArray<KOVATable> models_;
};

/// Writes the selected model's rows, one a line: the name in 24 columns, " : " and the value; of a section the
/// value alone.
KOVA_API KOVAStreamFormatter& operator<<(KOVAStreamFormatter& out, KOVAFileHeader const& header);
