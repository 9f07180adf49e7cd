#include "OptionTable.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <system_error>

#include <kova/system/KOVAEnvironment.h>
#include <kova/system/KOVAFloatUtil.h>

#include "OptionsFile.h"
#include "characters.h"

namespace translator {

namespace {

/// Where the options stand in the table.
enum : std::size_t { kAscii, kDigits, kWeldTolerance, kDegenerate };

constexpr int kMostDigits = 17;

/// In the order of Degenerate.
constexpr std::string_view kDegenerateWords[] = {"keep", "drop", "fail"};

std::string narrow(KOVAString const& text) {
    return text.length() > 0 ? std::string(static_cast<char const*>(text)) : std::string();
}

std::string nameOf(KOVAOption const& option) {
    KOVAString name;
    option.GetName(name);
    return narrow(name);
}

std::string variableOf(KOVAOption const& option) {
    return "KOVA" + nameOf(option);
}

KOVAValue::KOVAValueType typeOf(KOVAOption const& option) {
    KOVAValue::KOVAValueType type = KOVAValue::Unknown;
    option.GetValueType(type);
    return type;
}

/// The number that is the whole text.
KOVAValue parsedInt(std::string_view text) {
    int number = 0;
    char const* const end = text.data() + text.size();
    auto const result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end ? KOVAValue(number) : KOVAValue();
}

KOVAValue parsedDouble(std::string_view text) {
    double number = 0;
    char const* const end = text.data() + text.size();
    bool const isNumber = !text.empty() && KOVAFloatUtil::read(text.data(), end, number) == end;
    return isNumber && std::isfinite(number) ? KOVAValue(number) : KOVAValue();
}

KOVAValue parsedBool(std::string_view text) {
    for (std::string_view const word : {"on", "yes", "true"}) {
        if (equalsIgnoringCase(text, word))
            return true;
    }
    for (std::string_view const word : {"off", "no", "false"}) {
        if (equalsIgnoringCase(text, word))
            return false;
    }
    return {};
}

std::string shown(KOVAValue const& value) {
    KOVAValue::KOVAValueType type = KOVAValue::Unknown;
    value.GetValueType(type);
    if (type == KOVAValue::Double) {
        double number = 0;
        value.GetValue(number);
        char digits[32];
        return {digits, std::to_chars(digits, std::end(digits), number).ptr};
    }
    bool isOn = false;
    if (type == KOVAValue::Bool && value.GetValue(isOn).IsSuccess())
        return isOn ? "On" : "Off";
    KOVAString text;
    value.GetValue(text);
    return narrow(text);
}

bool isZero(KOVAValue const& value) {
    return value == KOVAValue(0) || value == KOVAValue(0.0);
}

bool isAny(KOVAValue const& /*value*/) {
    return true;
}

bool isNumberOfDigits(KOVAValue const& value) {
    int digits = -1;
    value.GetValue(digits);
    return digits >= 0 && digits <= kMostDigits;
}

bool isDistance(KOVAValue const& value) {
    double distance = -1;
    value.GetValue(distance);
    return distance >= 0;
}

/// The word's place among those of Degenerate; their number when it is none of them.
std::size_t degenerateAt(KOVAValue const& value) {
    std::string const text = shown(value);
    auto const found = std::find_if(std::begin(kDegenerateWords), std::end(kDegenerateWords),
                                    [&](std::string_view word) { return equalsIgnoringCase(text, word); });
    return static_cast<std::size_t>(found - std::begin(kDegenerateWords));
}

bool isDegenerateWord(KOVAValue const& value) {
    return degenerateAt(value) < std::size(kDegenerateWords);
}

template <class T> KOVAValue effective(KOVAOption const& option) {
    T value{};
    option.GetValue(value, true);
    return KOVAValue(value);
}

/// With the environment, as the library reads it.
KOVAValue effectiveValue(KOVAOption const& option) {
    switch (typeOf(option)) {
    case KOVAValue::Int: return effective<int>(option);
    case KOVAValue::Double: return effective<double>(option);
    case KOVAValue::Bool: return effective<bool>(option);
    default: return effective<KOVAString>(option);
    }
}

/// Each column as wide as its longest text.
void printColumns(std::vector<std::vector<std::string>> const& rows) {
    std::vector<std::size_t> widths(rows.front().size());
    for (auto const& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    }
    for (auto const& row : rows) {
        std::string line;
        for (std::size_t i = 0; i + 1 < row.size(); ++i)
            line += row[i] + std::string(widths[i] + 2 - row[i].size(), ' ');
        print(line + row.back());
    }
}

} // namespace

OptionTable::OptionTable()
    : rows_{{KOVAOption(KOVAOptionName::STL_Export_Ascii, false), &isAny, "On or Off", "STL is written as text"},
            {KOVAOption(KOVAOptionName::XMesh_Export_Digits, 0), &isNumberOfDigits, "a whole number from 0 to 17",
             "significant digits of numbers in text, 1 to 17; 0 for the fewest that keep each exactly"},
            {KOVAOption(KOVAOptionName::XMesh_Import_WeldTol, 0.0), &isDistance, "a number that is not negative",
             "in OBJ, a corner within this distance (in the model's units) of an earlier vertex becomes that vertex"},
            {KOVAOption(KOVAOptionName::XMesh_Import_Degenerate, "keep"), &isDegenerateWord, "keep, drop or fail",
             "triangles without area: keep or drop them, or fail"}} {}

/// Invalid where the text spells none of the option's values.
KOVAValue OptionTable::parsed(Row const& row, std::string_view text) {
    KOVAValue value;
    switch (typeOf(row.option)) {
    case KOVAValue::Int: value = parsedInt(text); break;
    case KOVAValue::Double: value = parsedDouble(text); break;
    case KOVAValue::Bool: value = parsedBool(text); break;
    default: value = KOVAString(std::string(text).c_str()); break;
    }
    return value.IsValid() && row.isInRange(value) ? value : KOVAValue();
}

KOVIResult OptionTable::failValue(Row const& row, std::string_view text, char const* source, Place place) {
    return fail(kInvalidArgument, source, place, "'%s' takes %s, not '%s'", nameOf(row.option).c_str(), row.wanted,
                printable(text.substr(0, 80)).c_str());
}

KOVIResult OptionTable::assign(std::vector<Row>& rows, std::string const& name, std::string const& text,
                               char const* source, Place place) {
    KOVAString const wanted(name.c_str());
    auto const row = std::find_if(rows.begin(), rows.end(), [&](Row const& each) {
        KOVAString known;
        each.option.GetName(known);
        return known.equalsIgnoreCase(wanted);
    });
    if (row == rows.end()) {
        if (KOVAOptionName::IsValid(wanted).IsFailure())
            return fail(kInvalidArgument, source, place, "%s",
                        printable(narrow(KOVAOptionName::DescribeUnknown(wanted))).c_str());
        warn(source, place, "'%s' has no effect here", name.c_str());
        return kSuccess;
    }
    KOVAValue const value = parsed(*row, text);
    if (!value.IsValid())
        return failValue(*row, text, source, place);
    row->option.SetValue(value);
    row->origin = place.kind == Place::Line ? std::string("file ") + source + ", line " + std::to_string(place.number)
                                            : "command line";
    return kSuccess;
}

KOVIResult OptionTable::readFile(char const* file) {
    OptionsFile contents;
    KOVIResult result = contents.read(file);
    std::vector<Row> changed = rows_;
    for (OptionsFile::Line const& line : contents.lines()) {
        bool const isGood =
            line.name.empty()
                ? fail(kInvalidArgument, file, atLine(line.number), "NAME=VALUE should stand here").IsSuccess()
                : assign(changed, line.name, line.value, file, atLine(line.number)).IsSuccess();
        if (!isGood)
            result = kInvalidArgument;
    }
    if (result.IsSuccess())
        rows_ = changed;
    return result;
}

KOVIResult OptionTable::set(std::string_view assignment) {
    std::size_t const separator = std::min(assignment.find('='), assignment.size());
    std::string const name(trimmed(assignment.substr(0, separator)));
    std::string const value(trimmed(assignment.substr(std::min(separator + 1, assignment.size()))));
    if (name.empty() || value.empty())
        return fail(kInvalidArgument, "--set", kNowhere, "NAME=VALUE should follow, not '%s'",
                    printable(assignment.substr(0, 80)).c_str());
    return assign(rows_, name, value, "--set", kNowhere);
}

/// A text that the library would leave aside, or read as something else than it spells, is a mistake: it takes any
/// word for a bool, numbers with something behind them, and nothing but "0" for a zero.
KOVIResult OptionTable::readEnvironment(Row& row) {
    std::string const variable = variableOf(row.option);
    KOVAString given;
    if (KOVAEnvironment::GetVariable(KOVAString(variable.c_str()), given).IsFailure())
        return kSuccess;
    std::string const text = narrow(given);
    KOVAValue const spelled = parsed(row, text);
    if (!spelled.IsValid())
        return failValue(row, text, "environment", kNowhere);
    if (isZero(spelled) && text != "0")
        return fail(kInvalidArgument, variable.c_str(), kNowhere, "zero is written 0 here, not '%s'", text.c_str());
    row.option.SetValue(effectiveValue(row.option));
    row.origin = "environment variable " + variable;
    return kSuccess;
}

KOVIResult OptionTable::readEnvironment() {
    KOVIResult result = kSuccess;
    for (Row& row : rows_) {
        if (readEnvironment(row).IsFailure())
            result = kInvalidArgument;
    }
    return result;
}

Settings OptionTable::settings() const {
    Settings settings;
    KOVAValue degenerate;
    rows_[kAscii].option.GetValue(settings.ascii);
    rows_[kDigits].option.GetValue(settings.digits);
    rows_[kWeldTolerance].option.GetValue(settings.weldTolerance);
    rows_[kDegenerate].option.GetValue(degenerate);
    settings.degenerate = static_cast<Degenerate>(degenerateAt(degenerate));
    return settings;
}

KOVAOptions OptionTable::given() const {
    KOVAOptions options;
    for (Row const& row : rows_) {
        if (row.origin != kDefault)
            options.AddOption(row.option);
    }
    return options;
}

void OptionTable::list() const {
    std::vector<std::vector<std::string>> lines;
    for (Row const& row : rows_) {
        KOVAValue value;
        row.option.GetDefaultValue(value);
        lines.push_back(
            {nameOf(row.option), KOVAValue::KOVAValueTypeNames[typeOf(row.option)], shown(value), row.meaning});
    }
    printColumns(lines);
}

void OptionTable::show() const {
    std::vector<std::vector<std::string>> lines;
    for (Row const& row : rows_) {
        KOVAValue value;
        row.option.GetValue(value);
        lines.push_back({nameOf(row.option), shown(value), row.origin});
    }
    printColumns(lines);
}

} // namespace translator
