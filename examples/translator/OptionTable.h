#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <kova/core/KOVIResult.h>
#include <kova/options/KOVAOptions.h>
#include <kova/public/KOVIOptions.h>

#include "Formats.h"
#include "OptionDescription.h"
#include "report.h"

namespace toolkit {

/// The options of a run, and where their values come from. What is taken over later wins. Every mistake is one error;
/// what has a mistake changes nothing and fails with Invalid Argument.
class OptionTable {
public:
    /// Those that all formats share, and those of the formats of the run. The other formats are loaded when a name
    /// is not among these, to tell an option without effect from a mistake.
    OptionTable(Formats& formats, std::vector<Format const*> const& used);

    KOVIResult readFile(char const* file);
    /// "NAME=VALUE".
    KOVIResult set(std::string_view assignment);
    KOVIResult readEnvironment();

    /// Those that a file, the command line or the environment gave a value.
    KOVAOptions given() const;
    /// The same as an application hands them on.
    KOVIOptions handle() const;

    /// Names, types, defaults and meanings, a line each.
    std::string description() const;
    /// Names, values and where these come from.
    std::string values() const;

private:
    static constexpr char kDefault[] = "default";

    struct Row {
        OptionDescription description;
        KOVAOption option;
        std::string origin = kDefault;
    };

    static Row* find(std::vector<Row>& rows, std::string const& name);
    KOVIResult failName(std::string const& name, char const* source, Place place);
    static KOVIResult failValue(Row const& row, std::string_view text, char const* source, Place place);
    KOVIResult assign(std::vector<Row>& rows, std::string const& name, std::string const& text, char const* source,
                      Place place);
    static KOVIResult readEnvironment(Row& row);

    Formats& formats_;
    std::vector<Row> rows_; ///< by name
};

} // namespace toolkit
