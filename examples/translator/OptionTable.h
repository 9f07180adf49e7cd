#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <kova/core/KOVIResult.h>
#include <kova/options/KOVAOptions.h>

#include "Settings.h"
#include "report.h"

namespace translator {

/// The options that the translator knows, and where their values come from. What is taken over later wins.
/// Every mistake is one error; what has a mistake changes nothing and fails with Invalid Argument.
class OptionTable {
public:
    OptionTable();

    KOVIResult readFile(char const* file);
    /// "NAME=VALUE".
    KOVIResult set(std::string_view assignment);
    KOVIResult readEnvironment();

    Settings settings() const;
    /// Those that a file, the command line or the environment gave a value.
    KOVAOptions given() const;

    /// Names, types, defaults and meanings as messages, a line each.
    void list() const;
    /// Names, values and where these come from.
    void show() const;

private:
    static constexpr char kDefault[] = "default";

    struct Row {
        KOVAOption option;
        bool (*isInRange)(KOVAValue const& value);
        char const* wanted; ///< what values there are
        char const* meaning;
        std::string origin = kDefault;
    };

    static KOVIResult assign(std::vector<Row>& rows, std::string const& name, std::string const& text,
                             char const* source, Place place);
    static KOVAValue parsed(Row const& row, std::string_view text);
    static KOVIResult failValue(Row const& row, std::string_view text, char const* source, Place place);
    static KOVIResult readEnvironment(Row& row);

    std::vector<Row> rows_;
};

} // namespace translator
