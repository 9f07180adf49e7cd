#include "OptionTable.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <set>
#include <system_error>

#include <kova/system/KOVAEnvironment.h>
#include <kova/system/KOVAFloatUtil.h>

#include "OptionsFile.h"
#include "Settings.h"
#include "characters.h"
#include "narrow.h"

namespace toolkit {

namespace {

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

bool isInRange(double value, OptionDescription const& description) {
    return value >= description.least && (description.most <= description.least || value <= description.most);
}

/// The number that is the whole text.
KOVAValue parsedInt(std::string_view text, OptionDescription const& description) {
    int number = 0;
    char const* const end = text.data() + text.size();
    auto const result = std::from_chars(text.data(), end, number);
    bool const isNumber = result.ec == std::errc() && result.ptr == end;
    return isNumber && isInRange(number, description) ? KOVAValue(number) : KOVAValue();
}

KOVAValue parsedDouble(std::string_view text, OptionDescription const& description) {
    double number = 0;
    char const* const end = text.data() + text.size();
    bool const isNumber = !text.empty() && KOVAFloatUtil::read(text.data(), end, number) == end;
    return isNumber && std::isfinite(number) && isInRange(number, description) ? KOVAValue(number) : KOVAValue();
}

KOVAValue parsedWord(std::string_view text, OptionDescription const& description) {
    bool const isWord = description.words.empty() ||
                        std::any_of(description.words.begin(), description.words.end(),
                                    [text](std::string const& word) { return equalsIgnoringCase(text, word); });
    return isWord ? KOVAValue(KOVAString(std::string(text).c_str())) : KOVAValue();
}

/// "keep, drop or fail"
std::string listed(std::vector<std::string> const& words) {
    std::string text = words.front();
    for (std::size_t i = 1; i < words.size(); ++i)
        text += (i + 1 == words.size() ? " or " : ", ") + words[i];
    return text;
}

/// " from 0 to 17"
std::string range(OptionDescription const& description) {
    std::string const least = shown(KOVAValue(description.least));
    return description.most > description.least ? " from " + least + " to " + shown(KOVAValue(description.most))
           : description.least == 0             ? " that is not negative"
                                                : " not below " + least;
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

bool isZero(KOVAValue const& value) {
    return value == KOVAValue(0) || value == KOVAValue(0.0);
}

KOVAValue::KOVAValueType typeOf(OptionDescription const& description) {
    KOVAValue::KOVAValueType type = KOVAValue::Unknown;
    description.defaultValue.GetValueType(type);
    return type;
}

/// Unknown where the text spells none of the option's values.
KOVAValue parsed(OptionDescription const& description, std::string_view text) {
    switch (typeOf(description)) {
    case KOVAValue::Int: return parsedInt(text, description);
    case KOVAValue::Double: return parsedDouble(text, description);
    case KOVAValue::Bool: return parsedBool(text);
    default: return parsedWord(text, description);
    }
}

/// "a number not below 0", "keep, drop or fail".
std::string wanted(OptionDescription const& description) {
    switch (typeOf(description)) {
    case KOVAValue::Int: return "a whole number" + range(description);
    case KOVAValue::Double: return "a number" + range(description);
    case KOVAValue::Bool: return "On or Off";
    default: return description.words.empty() ? "a text" : listed(description.words);
    }
}

template <class T> T valueOf(KOVAOption const& option, bool withEnvironment = false) {
    T value{};
    option.GetValue(value, withEnvironment);
    return value;
}

/// With the environment, as the library reads it.
KOVAValue effectiveValue(KOVAOption const& option) {
    switch (typeOf(option)) {
    case KOVAValue::Int: return valueOf<int>(option, true);
    case KOVAValue::Double: return valueOf<double>(option, true);
    case KOVAValue::Bool: return valueOf<bool>(option, true);
    default: return valueOf<KOVAString>(option, true);
    }
}

KOVIValue publicValue(KOVAOption const& option) {
    switch (typeOf(option)) {
    case KOVAValue::Int: return valueOf<int>(option);
    case KOVAValue::Double: return valueOf<double>(option);
    case KOVAValue::Bool: return valueOf<bool>(option);
    default: return narrow(valueOf<KOVAString>(option)).c_str();
    }
}

/// Each column as wide as its longest text.
std::string inColumns(std::vector<std::vector<std::string>> const& rows) {
    std::vector<std::size_t> widths(rows.front().size());
    for (auto const& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    }
    std::string text;
    for (auto const& row : rows) {
        for (std::size_t i = 0; i + 1 < row.size(); ++i)
            text += row[i] + std::string(widths[i] + 2 - row[i].size(), ' ');
        text += row.back() + '\n';
    }
    return text;
}

} // namespace

OptionTable::OptionTable(Formats& formats, std::vector<Format const*> const& used) : formats_(formats) {
    std::vector<OptionDescription> all = sharedOptions();
    for (Format const* const format : std::set<Format const*>(used.begin(), used.end())) {
        std::vector<OptionDescription> const own = format->options();
        all.insert(all.end(), own.begin(), own.end());
    }
    std::sort(all.begin(), all.end(),
              [](OptionDescription const& a, OptionDescription const& b) { return std::strcmp(a.name, b.name) < 0; });
    for (OptionDescription const& each : all)
        rows_.push_back({each, KOVAOption(KOVAOptionName(KOVAString(each.name)), each.defaultValue)});
}

OptionTable::Row* OptionTable::find(std::vector<Row>& rows, std::string const& name) {
    KOVAString const wanted(name.c_str());
    auto const row = std::find_if(rows.begin(), rows.end(), [&](Row const& each) {
        return KOVAString(each.description.name).equalsIgnoreCase(wanted);
    });
    return row == rows.end() ? nullptr : &*row;
}

/// An option of something else is no mistake.
KOVIResult OptionTable::failName(std::string const& name, char const* source, Place place) {
    formats_.all();
    KOVAString const wanted(name.c_str());
    if (KOVAOptionName::IsValid(wanted).IsFailure())
        return fail(kInvalidArgument, source, place, "%s",
                    printable(narrow(KOVAOptionName::DescribeUnknown(wanted))).c_str());
    warn(source, place, "'%s' has no effect here", name.c_str());
    return kSuccess;
}

KOVIResult OptionTable::failValue(Row const& row, std::string_view text, char const* source, Place place) {
    return fail(kInvalidArgument, source, place, "'%s' takes %s, not '%s'", row.description.name,
                wanted(row.description).c_str(), printable(text.substr(0, 80)).c_str());
}

KOVIResult OptionTable::assign(std::vector<Row>& rows, std::string const& name, std::string const& text,
                               char const* source, Place place) {
    Row* const row = find(rows, name);
    if (!row)
        return failName(name, source, place);
    KOVAValue const value = parsed(row->description, text);
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
    KOVAValue const spelled = parsed(row.description, text);
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

KOVAOptions OptionTable::given() const {
    KOVAOptions options;
    for (Row const& row : rows_) {
        if (row.origin != kDefault)
            options.AddOption(row.option);
    }
    return options;
}

KOVIOptions OptionTable::handle() const {
    KOVIOptions options;
    for (Row const& row : rows_) {
        if (row.origin != kDefault)
            options.Add(row.description.name, publicValue(row.option));
    }
    return options;
}

std::string OptionTable::description() const {
    std::vector<std::vector<std::string>> lines;
    for (Row const& row : rows_) {
        KOVAValue value;
        row.option.GetDefaultValue(value);
        lines.push_back({row.description.name, KOVAValue::KOVAValueTypeNames[typeOf(row.option)], shown(value),
                         row.description.meaning});
    }
    return inColumns(lines);
}

std::string OptionTable::values() const {
    std::vector<std::vector<std::string>> lines;
    for (Row const& row : rows_) {
        KOVAValue value;
        row.option.GetValue(value);
        lines.push_back({row.description.name, shown(value), row.origin});
    }
    return inColumns(lines);
}

} // namespace toolkit
