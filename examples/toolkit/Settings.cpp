#include "Settings.h"

#include <algorithm>
#include <string>

#include "characters.h"
#include "narrow.h"

namespace toolkit {

namespace {

constexpr char kDigits[] = "/XMesh/Export/Digits";
constexpr char kWeldTolerance[] = "/XMesh/Import/WeldTol";
constexpr char kDegenerate[] = "/XMesh/Import/Degenerate";

/// In the order of Degenerate.
std::vector<std::string> degenerateWords() {
    return {"keep", "drop", "fail"};
}

template <class T> T valueOf(KOVAOptions const& options, char const* name) {
    KOVAOption* option = nullptr;
    T value{};
    if (options.GetOption(name, option).IsSuccess())
        option->GetValue(value);
    return value;
}

} // namespace

Settings::Settings(KOVAOptions const& all)
    : options(all), digits(wholeNumber(all, kDigits)), weldTolerance(number(all, kWeldTolerance)),
      degenerate(static_cast<Degenerate>(wordAt(all, kDegenerate, degenerateWords()) % degenerateWords().size())) {}

std::vector<OptionDescription> sharedOptions() {
    return {{kDigits,
             0,
             "significant digits of numbers in text, 1 to 17; 0 for the fewest that keep each exactly",
             {},
             0,
             17},
            {kWeldTolerance, 0.0,
             "where vertices are shared, a corner within this distance (in the units of the output) of an earlier "
             "vertex becomes that vertex"},
            {kDegenerate, "keep", "triangles without area: keep or drop them, or fail", degenerateWords()}};
}

bool isOn(KOVAOptions const& options, char const* name) {
    return valueOf<bool>(options, name);
}

int wholeNumber(KOVAOptions const& options, char const* name) {
    return valueOf<int>(options, name);
}

double number(KOVAOptions const& options, char const* name) {
    return valueOf<double>(options, name);
}

std::size_t wordAt(KOVAOptions const& options, char const* name, std::vector<std::string> const& words) {
    KOVAString const value = valueOf<KOVAString>(options, name);
    std::string const text = narrow(value);
    auto const found = std::find_if(words.begin(), words.end(),
                                    [&](std::string const& word) { return equalsIgnoringCase(text, word); });
    return static_cast<std::size_t>(found - words.begin());
}

} // namespace toolkit
