#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "Input.h"
#include "ModelReader.h"
#include "ModelWriter.h"
#include "OptionDescription.h"
#include "OutputFile.h"
#include "Settings.h"

namespace toolkit {

/// Raised whenever anything changes that format libraries and the program share.
constexpr std::uint32_t kInterfaceVersion = 3;

/// What a format library exports as data. The program looks at it before it calls any function of the library, so
/// it keeps its shape for ever.
struct FormatInterface {
    std::uint32_t version;
};

/// One file format. What cannot be done gives null.
class Format {
public:
    Format() = default;
    Format(Format const&) = delete;
    Format& operator=(Format const&) = delete;
    virtual ~Format() = default;

    /// As people write it, "OBJ".
    virtual char const* name() const = 0;
    /// Those of this format alone, "/OBJ/...".
    virtual std::vector<OptionDescription> options() const { return {}; }
    virtual std::unique_ptr<ModelReader> reader(Input& input) const = 0;
    /// Null also where this output will not do; that is reported then.
    virtual std::unique_ptr<ModelWriter> writer(OutputFile& output, Settings const& settings) const = 0;
};

/// What the source of a format library defines; formatLibrary.cpp, which is built into every one of them, does the
/// rest.
std::unique_ptr<Format> makeFormat();

// The library of the format whose files end in ".xyz" is called kova_format_xyz. It exports, as C names, the data
// FormatInterface kovaFormatInterface and the functions void kovaFormatInitialize(), void kovaFormatFinalize() and,
// between these two, Format const* kovaFormat().
constexpr char kLibraryPrefix[] = "kova_format_";
constexpr char kInterfaceName[] = "kovaFormatInterface";
constexpr char kInitializeName[] = "kovaFormatInitialize";
constexpr char kFinalizeName[] = "kovaFormatFinalize";
constexpr char kFormatName[] = "kovaFormat";
using FormatFunction = Format const* (*)();

} // namespace toolkit
