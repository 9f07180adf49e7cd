#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <kova/core/KOVIResult.h>

#include "bytes.h"

namespace toolkit {

enum class PlyEncoding { Little, Big, Ascii };

/// "binary PLY"
char const* nameOf(PlyEncoding encoding) noexcept;
/// As the header has it.
std::string_view keywordOf(PlyEncoding encoding) noexcept;
/// Of binary values.
inline ByteOrder orderOf(PlyEncoding encoding) noexcept {
    return encoding == PlyEncoding::Big ? ByteOrder::Big : ByteOrder::Little;
}

enum class PlyType { Int8, UInt8, Int16, UInt16, Int32, UInt32, Float32, Float64 };

/// What there is to know of a type.
struct PlyTypeInfo {
    std::string_view name;      ///< "char"
    std::string_view sizedName; ///< "int8", which means the same
    int size;                   ///< in bytes
    bool isInteger;
    double least; ///< of an integer
    double most;
};

PlyTypeInfo const& infoOf(PlyType type) noexcept;

struct PlyProperty {
    std::string name;
    PlyType type;                     ///< of a list, that of its items
    std::optional<PlyType> countType; ///< of a list's length; none for what is no list
};

struct PlyElement {
    std::string name;
    long long count; ///< how often it stands in the file, which may say anything
    long long line;  ///< of the header
    std::vector<PlyProperty> properties;
};

/// The statements in front of the values.
struct PlyHeader {
    std::optional<PlyEncoding> encoding;
    std::vector<PlyElement> elements;
    std::set<std::string> names; ///< of elements, and behind "element " of properties

    /// Takes "format", "element" or "property". A fault is reported.
    KOVIResult take(std::string_view statement, char const* file, long long line);
};

} // namespace toolkit
